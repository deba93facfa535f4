#include "grouping/grouping.h"

#include "run_test.h"

namespace {

class GroupingTest : public RunTest {
 protected:
  GroupingTest() {
    run.GroupCount = 3;
    run.SquadGroups[0] = {.Count = 2, .Kind = 2, .Squads = {German, British}};
    run.SquadGroups[1] = {.Count = 3, .Kind = 2, .Squads = {German, British, British}};
    run.SquadGroups[2] = {.Count = 1, .Kind = 9, .Squads = {Foreign, German}};
    run.Periods[0].GroupOdds[2] = 0.5;
    run.WarPeriod = 3;
  }
  // The pairs that CombineFormations makes.
  std::string Combined(std::initializer_list<float> draws) {
    fakes::Script(draws);
    CombineFormations(run);
    std::string pairs;
    for (Long pair = 0; pair < run.GroupPairCount; ++pair) {
      pairs += Join(Longs{run.GroupPairs[pair].sourceIndex, run.GroupPairs[pair].targetIndex}) + " ";
    }
    return pairs;
  }
  const std::vector<Byte> four{11, 4, 4, 12};
};

TEST_F(GroupingTest, EachSourceDrawsAndTakesTheFirstFreeFlight) {
  Add({.squad = German, .type = TypeEscort, .actions = four});  // 0: draws, can't be a source
  Add({.squad = British, .actions = {11, 4, 12}});              // 1: draws, too short
  Add({.squad = German, .actions = four});                      // 2: removed
  Add({.squad = Stranger, .actions = four});                    // 3: in no group
  Add({.squad = British, .actions = four});                     // 4: the player's, its draw lies below the odds
  Add({.squad = German, .actions = four});                      // 5: not 4, the player's, but 6
  Add({.squad = British, .actions = four});                     // 6
  Add({.squad = German, .actions = four});                      // 7: takes 9
  Add({.squad = Foreign, .actions = four});                     // 8: its Kind is in no table
  Add({.squad = German, .actions = four});                      // 9
  run.Removed[2] = TakenOut;
  run.PlayerFlight = 4;
  EXPECT_EQ(isGroupedSquadron(run, German), 1);  // the last that holds it
  EXPECT_EQ(Combined({1, 1, 0.49F, 0.5F, 1, 1, 1, 1}), "5,6 7,9 ");
}

TEST_F(GroupingTest, TargetTakesTheMissionAndPartsOfTheRoute) {
  MissionRec& source = Add({.squad = German, .type = TypeBomb, .actions = {0, 1, 2, 3, 4, 5}});  // the player's
  MissionRec& target = Add({.squad = British, .type = TypeCAP, .actions = four});
  source.FlightType = source.HeadLong16 = source.HeadLong24 = source.Target = 8;
  for (WaypointRec& point : source.Waypoints) {
    point = {1, {1}, 1, 1, 1, {1, 1, 1, 1, 1}, 1, 1, 1, 1, 1, 1, point.Action, 1};
  }
  EXPECT_EQ(Combined({1, 1}), "0,1 ");
  EXPECT_EQ(target.MissionType + target.FlightType + target.HeadLong16 + target.HeadLong24 + target.Target, 32);
  EXPECT_EQ(target.SquadID, British);
  EXPECT_EQ(Actions(1), "0,1,2,3,4,5");
  for (Long k = 1; k <= 6; ++k) {
    const WaypointRec& point = target.Waypoints[k - 1];
    const int ofSource = k == 1 || k == 2 || k == 5 ? 0 : 1;
    EXPECT_EQ(point.WPLong0 + point.WPByte33 + point.WPByte35 + point.WPLong36 + point.ActionParam, 5) << k;
    EXPECT_EQ(Join(point.WPBytes) + " " + Join(point.Carried4), "1,1,1,1,0 0,0,0,0,0,0,0,0") << k;
    EXPECT_EQ(point.AltBytes + point.Lon + point.Lat + point.WPLong20, 4 * ofSource) << k;
    EXPECT_EQ(point.Formation + point.WPByte34, 2 - 2 * ofSource) << k;
  }
}

}  // namespace
