// The report, byte for byte: data/report.txt is one.
#include "report/report.h"

#include <fstream>

#include "report/names.h"
#include "run_test.h"

namespace {

std::string Data(const std::string& name) {
  std::ifstream file(VELMORAN_TEST_DATA "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

using ReportTest = RunTest;

TEST_F(ReportTest, EveryKindOfFlight) {
  run.PlayerFlight = 5;
  run.Squadrons[0] = {.squadID = 33, .nation = 2, .SquadName = "Ninth Squadron"};
  run.Aircraft[4].AircraftName = "Sample Scout";
  run.Aircraft[3].AircraftName = "D\xE9sir";
  MissionRec& escort =
      Add({.squad = 33, .type = TypeEscort, .planes = {4, 4}, .actions = {11, 10}, .pilots = {17, 18}, .escorted = 9});
  escort.FlightID = 12;
  escort.EscortFlag = 1;
  escort.Waypoints[0] = {.Lon = -300, .Lat = 450, .AltBytes = 16, .Formation = 1, .Action = 11};
  escort.Waypoints[1] = {.Lon = 120, .Lat = -75, .AltBytes = 0x7F000100, .Formation = 14, .Action = 10};

  MissionRec& route = Add({.squad = 60, .type = -1, .planes = {3}, .actions = std::vector<Byte>(10)});
  route.Waypoints[0].Action = route.Waypoints[0].Formation = 255;
  route.Waypoints[0].AltBytes = -1;
  route.Waypoints[9].Action = ActionRendezvous;
  Add({.squad = Stranger, .planes = {3, -1, 51, -2}, .pilots = {-2}});
  MissionRec& last = Add({.squad = 200, .type = TypeEscort, .planes = {50, 50}, .escorted = -4});  // no squadron line
  last.NumAircraft = 1;
  last.Pilots[11] = 0;
  Add({.squad = 201, .planes = Longs(12, 50)}).NumAircraft = 14;
  Add({.squad = British, .planes = {50}}).EscortFlag = -1;
  Add({.squad = British, .type = TypeEscort, .planes = {4, 4}, .actions = {10}});  // out of play: in no list
  run.Removed[run.LoadedCount - 1] = TakenOut;
  run.MissionCount = 31;
  run.GroupPairCount = 1;
  run.GroupPairs[0] = {.sourceIndex = 1, .targetIndex = Narrow(run.LoadedCount - 1)};  // but grouped

  EXPECT_EQ(ComposeReport(run), Data("report.txt"));
}

TEST_F(ReportTest, NoFlights) {
  EXPECT_EQ(ComposeReport(run),
            "Player Flight ID :        0 \r\nMission Count    :        0 \r\n"
            " \r\n \r\n \r\n \r\n \r\n \r\n \r\n \r\n");
}

TEST(NamesTest, StandLetterForLetter) {
  std::string names;
  std::string_view name;
  for (Long type = -1; type < 15; ++type) GetMissionName(type, name), names.append(name).append("\n");
  for (Byte action = 0; action < 16; ++action) GetWPAction(action, name), names.append(name).append("\n");
  for (Byte formation = 0; formation < 18; ++formation)
    GetWPFormation(formation, name), names.append(name).append("\n");
  EXPECT_EQ(names, Data("names.txt"));
}

}  // namespace
