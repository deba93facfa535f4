#include "massage/formation.h"

#include "run_test.h"

namespace {

int Best(int action, Long size, Long flightType = 0, Long target = 0) {
  Byte formation = 99;
  getBestFormationForAction(static_cast<Byte>(action), size, flightType, target, formation);
  return formation;
}

TEST(FormationTest, EnrouteByFlightSize) {
  const int telling[] = {5, 0, 0, 2, 3, 4, 5, 6, 5, 6, 5, 6, 5, 6};
  const int others[] = {8, 0, 1, 2, 1, 4, 8, 8, 7, 8, 8, 7, 8, 8};
  for (Long size = 0; size <= 13; ++size) {
    for (const int action : {0, 1, 4, 5, 6, 9, 10, 14}) {
      EXPECT_EQ(Best(action, size, 2), telling[size]) << size << " in action " << action;
      EXPECT_EQ(Best(action, size, 1), others[size]) << size << " in action " << action;
    }
  }
  EXPECT_EQ(Best(0, 2147483647, 0), 8);
  EXPECT_EQ(Best(0, -1, 0), 7);
  EXPECT_EQ(Best(0, -3, 2), 6);
}

TEST(FormationTest, OverTheTargetAndElsewhere) {
  EXPECT_EQ(Best(3, 4, 2, 4), 11);
  EXPECT_EQ(Best(3, 5, 2, 4), 16);
  for (const Long far : {4, 6, 100}) EXPECT_EQ(Best(3, 5, 0, far), 4) << far;
  for (const Long near : {-1, 3, 5}) {
    EXPECT_EQ(Best(3, 11, 0, near), 16) << near;
    EXPECT_EQ(Best(3, 12, 0, near), 1) << near;
  }
  EXPECT_EQ(Best(2, 4), 14);
  EXPECT_EQ(Best(2, 3), 15);
  EXPECT_EQ(Best(11, 6), 9);
  EXPECT_EQ(Best(12, 6), 9);
  for (const int action : {7, 8, 13, 15, 255}) EXPECT_EQ(Best(action, 6), 1) << action;
  for (const int action : {2, 3, 11, 255}) EXPECT_EQ(Best(action, 1, 2), 0) << action;
}

using AdjustFormationsTest = RunTest;

TEST_F(AdjustFormationsTest, EveryWaypointOfFlightsInPlay) {
  for (int row = 0; row < 2; ++row) {
    MissionRec& flight = Add({.planes = {0, 0, 0, 0}, .actions = {11, 2, 3}});
    flight.Target = 5;
    for (Long k = 0; k < 3; ++k) flight.Waypoints[k].Formation = 13;
  }
  run.Removed[0] = TakenOut;
  AdjustFormations(run);
  const auto formations = [this](Long row) {
    const auto& waypoints = run.Missions[row].Waypoints;
    return std::vector<int>{waypoints[0].Formation, waypoints[1].Formation, waypoints[2].Formation};
  };
  EXPECT_EQ(formations(0), (std::vector<int>{13, 13, 13}));
  EXPECT_EQ(formations(1), (std::vector<int>{9, 14, 16}));
}

}  // namespace
