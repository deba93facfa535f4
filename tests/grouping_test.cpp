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
    run.Periods[0].GroupOdds[2] = 0.5;  // of war period 0, always
  }
  // The pairs that CombineFormations makes, source and target.
  std::vector<Longs> Combined(std::initializer_list<float> draws) {
    fakes::Script(draws);
    CombineFormations(run);
    std::vector<Longs> pairs;
    for (Long pair = 0; pair < run.GroupPairCount; ++pair) {
      pairs.push_back({run.GroupPairs[pair].sourceIndex, run.GroupPairs[pair].targetIndex});
    }
    return pairs;
  }
  const std::vector<Byte> four{11, 4, 4, 12};
};

TEST_F(GroupingTest, EachSourceDrawsAndTakesTheFirstFreeFlight) {
  Add({.squad = German, .type = TypeEscort, .actions = four});  // 0: draws, but can't be a source
  Add({.squad = British, .actions = {11, 4, 12}});              // 1: draws, but is too short
  Add({.squad = German, .actions = four});                      // 2: removed
  Add({.squad = Stranger, .actions = four});                    // 3: in no group
  Add({.squad = British, .actions = four});                     // 4: the player's; its draw is below the odds
  Add({.squad = German, .actions = four});                      // 5: not 4, the player's, but 6
  Add({.squad = British, .actions = four});                     // 6
  Add({.squad = German, .actions = four});                      // 7: takes 9
  Add({.squad = Foreign, .actions = four});                     // 8: its Kind is outside the table
  Add({.squad = German, .actions = four});                      // 9
  Add({.squad = British, .actions = four});                     // 10: finds nobody
  run.Removed[2] = TakenOut;
  run.PlayerFlight = 4;
  EXPECT_EQ(isGroupedSquadron(run, German), 1);  // the last group with it
  EXPECT_EQ(Combined({1, 1, 0.49F, 0.5F, 1, 1, 1, 1, 1}), (std::vector<Longs>{{5, 6}, {7, 9}}));
}

TEST_F(GroupingTest, TargetTakesTheMissionAndPartsOfTheRoute) {
  MissionRec& source = Add({.squad = German, .type = TypeBomb, .actions = {0, 1, 2, 3, 4, 5}});  // the player's
  MissionRec& target = Add({.squad = British, .type = TypeCAP, .actions = four});
  source.FlightType = source.HeadLong16 = source.HeadLong24 = source.Target = 8;
  for (WaypointRec& point : source.Waypoints) {
    point = {1, {1}, 1, 1, 1, {1, 1, 1, 1, 1}, 1, 1, 1, 1, 1, 1, point.Action, 1};
  }
  EXPECT_EQ(Combined({1, 1}), (std::vector<Longs>{{0, 1}}));
  EXPECT_EQ((Longs{target.MissionType, target.FlightType, target.HeadLong16, target.HeadLong24, target.Target}),
            (Longs{TypeBomb, 8, 8, 8, 8}));
  EXPECT_EQ(target.SquadID, British);
  EXPECT_EQ(Actions(1), (Longs{0, 1, 2, 3, 4, 5}));
  using W = WaypointRec;
  const Longs places{0, 0, 1, 1, 0, 1}, formations{1, 1, 0, 0, 1, 0};
  for (const auto field : {&W::WPLong0, &W::WPLong36, &W::ActionParam}) EXPECT_EQ(Each(1, field), Longs(6, 1));
  for (const auto field : {&W::WPByte33, &W::WPByte35}) EXPECT_EQ(Each(1, field), Longs(6, 1));
  for (const auto field : {&W::AltBytes, &W::Lon, &W::Lat, &W::WPLong20}) EXPECT_EQ(Each(1, field), places);
  for (const auto field : {&W::Formation, &W::WPByte34}) EXPECT_EQ(Each(1, field), formations);
  for (const WaypointRec& point : Route(target)) {
    EXPECT_EQ(Join(point.WPBytes), "1,1,1,1,0");
    EXPECT_EQ(Join(point.Carried4), "0,0,0,0,0,0,0,0");
  }
}

}  // namespace
