#include "massage/formation.h"

#include "run_test.h"

namespace {

// The formations for flights of 0 to 13 planes.
Longs Formations(Byte action, Long flightType, Long target = 0) {
  Longs formations;
  for (Long size = 0; size <= 13; ++size) {
    Byte formation = 99;
    getBestFormationForAction(action, size, flightType, target, formation);
    formations.push_back(formation);
  }
  return formations;
}

TEST(FormationTest, ByActionAndNumberOfPlanes) {
  const Longs enroute{8, 0, 1, 2, 1, 4, 8, 8, 7, 8, 8, 7, 8, 8},
      enrouteOfTypeTwo{5, 0, 0, 2, 3, 4, 5, 6, 5, 6, 5, 6, 5, 6},
      lowAltOfTypeTwo{11, 0, 11, 11, 11, 16, 16, 16, 16, 16, 16, 16, 16, 16},
      attack{16, 0, 16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 1, 1},
      escort{15, 0, 15, 15, 14, 14, 14, 14, 14, 14, 14, 14, 14, 14}, field{9, 0, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9},
      other{1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
  for (const Byte action : std::vector<Byte>{0, 1, 4, 5, 6, 9, 10, 14}) {
    EXPECT_EQ(Formations(action, 2), enrouteOfTypeTwo) << +action;
    EXPECT_EQ(Formations(action, 1), enroute) << +action;
  }
  EXPECT_EQ(Formations(ActionEscort, 2), escort);
  EXPECT_EQ(Formations(ActionAttackTarget, 2, 4), lowAltOfTypeTwo);
  for (const Long target : {4, 6, 100}) EXPECT_EQ(Formations(ActionAttackTarget, 0, target), enroute) << target;
  for (const Long target : {-1, 3, 5}) EXPECT_EQ(Formations(ActionAttackTarget, 0, target), attack) << target;
  for (const Byte action : std::vector<Byte>{11, 12}) EXPECT_EQ(Formations(action, 0), field) << +action;
  for (const Byte action : std::vector<Byte>{7, 8, 13, 15, 255}) EXPECT_EQ(Formations(action, 0), other) << +action;

  Byte formation = 99;
  getBestFormationEnroute(2147483647, 0, formation);
  EXPECT_EQ(formation, FormationJavelin2);
  getBestFormationEnroute(-3, 2, formation);
  EXPECT_EQ(formation, FormationVic);
}

}  // namespace
