// The report, byte for byte: data/report.txt is one.
#include "report/report.h"

#include <fstream>

#include "run_test.h"

namespace {

using ReportTest = RunTest;

TEST_F(ReportTest, EveryKindOfFlightAndEveryName) {
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

  MissionRec& route = Add({.squad = 60, .type = -1, .planes = {3}, .actions = std::vector<Byte>(18)});
  for (Long k = 0; k < route.WPCount; ++k) {
    route.Waypoints[k].Action = route.Waypoints[k].Formation = static_cast<Byte>(k - 1);  // 255, 0 to 16
  }
  route.Waypoints[0].AltBytes = -1;
  Add({.squad = Stranger, .planes = {3, -1, 51, -2}, .pilots = {-2}});
  MissionRec& last = Add({.squad = 200, .type = TypeEscort, .planes = {50, 50}, .escorted = -4});  // no squadron line
  last.NumAircraft = 1;
  last.Pilots[11] = 0;
  Add({.squad = 201, .planes = Longs(12, 50)}).NumAircraft = 14;
  Add({.squad = British, .planes = {50}}).EscortFlag = -1;
  for (Long type = 0; type <= 14; ++type) Add({.squad = 0, .type = type, .planes = {4}});
  Add({.squad = British, .type = TypeEscort, .planes = {4, 4}, .actions = {10}});  // removed: in no list
  run.Removed[run.LoadedCount - 1] = TakenOut;
  run.MissionCount = 31;
  run.GroupPairCount = 1;
  run.GroupPairs[0] = {.sourceIndex = 1, .targetIndex = Narrow(run.LoadedCount - 1)};  // but grouped

  std::ifstream file(VELMORAN_TEST_DATA "/report.txt", std::ios::binary);
  EXPECT_EQ(ComposeReport(run), std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace
