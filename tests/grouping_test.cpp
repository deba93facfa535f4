#include "grouping/grouping.h"

#include "run_test.h"

namespace {

class GroupingTest : public RunTest {
 protected:
  GroupingTest() {
    run.PlayerFlight = 100;
    run.GroupCount = 3;
    run.SquadGroups[0] = {.Count = 2, .Kind = 2, .Squads = {German, British}};
    run.SquadGroups[1] = {.Count = 3, .Kind = 2, .Squads = {German, British, British}};
    run.SquadGroups[2] = {.Count = 1, .Kind = 9, .Squads = {Foreign, German}};
    run.Periods[0].GroupOdds[2] = 0.5;
    run.WarPeriod = 3;
  }
  std::vector<std::pair<int, int>> Combined(std::initializer_list<float> draws) {
    fakes::Script(draws);
    CombineFormations(run);
    std::vector<std::pair<int, int>> pairs;
    for (Long pair = 0; pair < run.GroupPairCount; ++pair) {
      pairs.emplace_back(run.GroupPairs[pair].sourceIndex, run.GroupPairs[pair].targetIndex);
    }
    return pairs;
  }
  const std::vector<Byte> four{11, 4, 4, 12};
};
using Pairs = std::vector<std::pair<int, int>>;

TEST_F(GroupingTest, GroupOfASquadronIsTheLastThatHoldsIt) {
  EXPECT_EQ(isGroupedSquadron(run, German), 1);
  EXPECT_EQ(isGroupedSquadron(run, Foreign), 2);
  EXPECT_EQ(isGroupedSquadron(run, 0), -1);
  run.GroupCount = 0;
  EXPECT_EQ(isGroupedSquadron(run, German), -1);
}

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
  EXPECT_EQ(Combined({1, 1, 0.49F, 0.5F, 1, 1, 1, 1}), (Pairs{{5, 6}, {7, 9}}));
}

TEST_F(GroupingTest, TargetTakesTheMissionAndPartsOfTheRoute) {
  MissionRec& source = Add({.squad = German, .type = TypeBomb, .actions = {11, 4, 5, 6, 7, 12}});
  MissionRec& target = Add({.squad = British, .type = TypeCAP, .actions = four});
  source.FlightType = source.HeadLong16 = source.HeadLong24 = source.Target = 8;
  for (Long k = 0; k < 6; ++k) {
    source.Waypoints[k] = {.WPLong0 = 1,
                           .Carried4 = {1},
                           .Lon = 1,
                           .Lat = 1,
                           .WPLong20 = 1,
                           .WPBytes = {1, 1, 1, 1, 1},
                           .AltBytes = 1,
                           .WPByte33 = 1,
                           .WPByte34 = 1,
                           .WPByte35 = 1,
                           .WPLong36 = 1,
                           .Formation = 1,
                           .Action = static_cast<Byte>(k),
                           .ActionParam = 1};
  }
  run.PlayerFlight = 0;  // may be a source
  EXPECT_EQ(Combined({1, 1}), (Pairs{{0, 1}}));
  EXPECT_EQ(target.MissionType + target.FlightType + target.HeadLong16 + target.HeadLong24 + target.Target, 32);
  EXPECT_EQ(target.SquadID, British);
  EXPECT_EQ(Actions(1), (std::vector<int>{0, 1, 2, 3, 4, 5}));
  for (Long k = 1; k <= 6; ++k) {
    const WaypointRec& waypoint = target.Waypoints[k - 1];
    SCOPED_TRACE(k);
    EXPECT_EQ(waypoint.WPLong0 + waypoint.WPByte33 + waypoint.WPByte35 + waypoint.WPLong36 + waypoint.ActionParam, 5);
    EXPECT_EQ(waypoint.WPBytes, (Table<Byte, 5>{1, 1, 1, 1, 0}));
    EXPECT_EQ(waypoint.Carried4[0], 0);
    const int ofSource = k == 1 || k == 2 || k == 5 ? 0 : 1;
    EXPECT_EQ(waypoint.AltBytes + waypoint.Lon + waypoint.Lat + waypoint.WPLong20, 4 * ofSource);
    EXPECT_EQ(waypoint.Formation + waypoint.WPByte34, 2 - 2 * ofSource);
  }
}

}  // namespace
