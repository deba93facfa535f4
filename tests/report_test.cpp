// The report, byte for byte. data/report.txt shows a blank as "·", leaves out the CR of the line ends, and has other
// bytes that are no letters in hexadecimal.
#include "report/report.h"

#include <fstream>
#include <sstream>

#include "report/names.h"
#include "run_test.h"

namespace {

std::string Shown(const std::string& report) {
  std::ostringstream shown;
  for (const char letter : report) {
    if (letter == ' ') {
      shown << "·";
    } else if (letter == '\n' || (letter > ' ' && letter <= '~')) {
      shown << letter;
    } else if (letter != '\r') {
      shown << "<" << std::hex << int{static_cast<Byte>(letter)} << ">";
    }
  }
  return shown.str();
}

class ReportTest : public RunTest {
 protected:
  ReportTest() { run.PlayerFlight = 5; }
};

TEST_F(ReportTest, EveryKindOfFlight) {
  run.Squadrons[0] = {.squadID = 33, .nation = 2, .SquadName = "Ninth Squadron"};
  run.Aircraft[4].AircraftName = "Sample Scout";
  run.Aircraft[3].AircraftName = std::string("N\0m\xE9", 4);
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

  std::ifstream file(VELMORAN_TEST_DATA "/report.txt", std::ios::binary);
  const std::string expected(std::istreambuf_iterator<char>(file), {});
  EXPECT_EQ(Shown(ComposeReport(run)), expected);
}

TEST_F(ReportTest, NoFlights) {
  EXPECT_EQ(ComposeReport(run),
            "Player Flight ID :        5 \r\nMission Count    :        0 \r\n"
            " \r\n \r\n \r\n \r\n \r\n \r\n \r\n \r\n");
}

TEST(NamesTest, StandLetterForLetter) {
  std::string names;
  std::string_view name;
  const auto note = [&] { names.append(name).append(", "); };
  for (Long type = -1; type < 15; ++type) GetMissionName(type, name), note();
  GetMissionName(256, name), note();
  EXPECT_EQ(names,
            "Unknown, Bomb, Recon, Attack, Spotting, CAP, Barrage Patrol, Balloon Bust, Escort, Balloon Defense, "
            "Infantry Defense, Attack Support, Barrage Support, Offensive Patrol, Lone Wolf, Unknown, Unknown, ");
  names.clear();
  for (Byte action = 0; action < 16; ++action) GetWPAction(action, name), note();
  EXPECT_EQ(names,
            "Ingress, Egress, Escort, Attack Target, Patrol, Defend Balloon, Patrol Front, Defend Infantry, "
            "Support Attack, Loiter, rendevous, Takeoff, Land, Recon, Navigate, Unknown, ");
  names.clear();
  for (Byte formation = 0; formation < 18; ++formation) GetWPFormation(formation, name), note();
  EXPECT_EQ(names,
            "Echelon Right, Echelon Left, Vee, Diamond, Wedge, Delta, Vic, Javelin, Javelin 2, In Trail, Wall, "
            "Low Alt, Stinger, Fluid, Escort, Escort, Low alt Vic, Unknown, ");
}

}  // namespace
