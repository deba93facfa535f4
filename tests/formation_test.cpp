#include "massage/formation.h"

#include "run_test.h"

namespace {

// The formations for flights of 0 to 13 planes.
std::string Best(int action, Long flightType, Long target = 0) {
  Longs formations;
  for (Long size = 0; size <= 13; ++size) {
    Byte formation = 99;
    getBestFormationForAction(static_cast<Byte>(action), size, flightType, target, formation);
    formations.push_back(formation);
  }
  return Join(formations);
}

TEST(FormationTest, ByActionAndFlightSize) {
  const std::string apart = "5,0,0,2,3,4,5,6,5,6,5,6,5,6", others = "8,0,1,2,1,4,8,8,7,8,8,7,8,8";
  for (const int enroute : {0, 1, 4, 5, 6, 9, 10, 14}) {
    EXPECT_EQ(Best(enroute, 2), apart) << enroute;
    EXPECT_EQ(Best(enroute, 1), others) << enroute;
  }
  EXPECT_EQ(Best(2, 2), "15,0,15,15,14,14,14,14,14,14,14,14,14,14");
  EXPECT_EQ(Best(3, 2, 4), "11,0,11,11,11,16,16,16,16,16,16,16,16,16");
  for (const Long far : {4, 6, 100}) EXPECT_EQ(Best(3, 0, far), others) << far;
  for (const Long near : {-1, 3, 5}) EXPECT_EQ(Best(3, 0, near), "16,0,16,16,16,16,16,16,16,16,16,16,1,1") << near;
  for (const int field : {11, 12}) EXPECT_EQ(Best(field, 0), "9,0,9,9,9,9,9,9,9,9,9,9,9,9");
  for (const int other : {7, 8, 13, 15, 255}) EXPECT_EQ(Best(other, 0), "1,0,1,1,1,1,1,1,1,1,1,1,1,1") << other;
  Byte formation = 99;
  getBestFormationEnroute(2147483647, 0, formation);
  EXPECT_EQ(formation, FormationJavelin2);
  getBestFormationEnroute(-3, 2, formation);
  EXPECT_EQ(formation, FormationVic);
}

using AdjustFormationsTest = RunTest;

TEST_F(AdjustFormationsTest, EveryWaypointOfFlightsInPlay) {
  for (int row = 0; row < 2; ++row) Add({.planes = {0, 0, 0, 0}, .actions = {11, 2, 3}}).Target = 5;
  run.Removed[0] = TakenOut;
  AdjustFormations(run);
  const auto formation = [](const WaypointRec& waypoint) { return Long{waypoint.Formation}; };
  EXPECT_EQ(Each(0, formation) + " " + Each(1, formation), "0,0,0 9,14,16");
}

}  // namespace
