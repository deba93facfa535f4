// What is read from the files into the RunState. data/faults.txt has the ways in which a file can be invalid.
#include "campaign_folder.h"
#include "state/roster.h"

using namespace velmoran;

namespace {

using fakes::Join;
using FilesTest = CampaignFolder;

// Including those that no massage of the sample uses.
TEST_F(FilesTest, SetupItemsAreInTheirPlaces) {
  ::Write(ini, Replaced(Read(ini), "1.20, 0.25, 0.50, 0.60, 0.70, 0.80", "1.2, 0.25, 5, 6, 7, 8"));
  ASSERT_EQ(Load(), Messages{});
  EXPECT_EQ(Join(state->Periods[0].SizeFactor), "0.7,0.6,0.65,0.6,0");
  EXPECT_EQ(Join(state->Periods[6].SizeFactor), "1.1,1.3,1.25,1.2,0");
  EXPECT_EQ(Join(state->Periods[6].GroupOdds), "5,6,7,8,0");
  EXPECT_EQ(Join(state->TypeOdds[4].Odds), "0.15,0.4,0.3,0.3,0");
  EXPECT_EQ(Join(state->SquadGroups[2].Squads), "121,124,127,130,0");
  EXPECT_EQ(Join(std::vector{state->GroupCount, state->SquadGroups[1].Kind, state->SquadGroups[3].Kind}), "3,1,-1");
}

TEST_F(FilesTest, GrammarOfSetupItems) {
  ::Write(txt,
          "\xEF\xBB\xBF \"A, \nlabel,\"Name, with comma\" dropped,\t 3 ,-4.5,  +2000\r\n"
          "label 2,bare \"name\" ,0.5,,\r\"never closed, \r\n\"\xFC\",1.5,2.5,\"9\"\n\n\n,-.0" +
              Bytes(400, '0') + "1,.6\n" + Read(txt).substr(Read(txt).find("\"Aircraft 4\"")));
  ASSERT_EQ(Load(), Messages{});
  const auto row = [this](Long index) {
    const AircraftRec& aircraft = state->Aircraft[index];
    return aircraft.AircraftName + "|" + Join(std::vector{aircraft.AircraftClass, aircraft.MinAlt, aircraft.MaxAlt});
  };
  EXPECT_EQ(row(0), "Name, with comma|3,-4,2000");
  EXPECT_EQ(row(1), "bare \"name\" |0,0,0");
  EXPECT_EQ(row(2), "\xFC|2,2,9");
  EXPECT_EQ(row(3), "|0,0,1");
  EXPECT_EQ(row(4), "Rieslinger Dr.I|1,2500,14000");
  ::Write(ini, Replaced(Read(ini), "2, 1, 83, 90\n4,", "0, 1, 5, 1, -32768.5,83,90,1,1\n2"));
  EXPECT_EQ(Load(), Messages{});
  EXPECT_EQ(Join(state->SquadGroups[2].Squads), "-32768,83,90,1,1");
}

TEST_F(FilesTest, DataPathIsTheFolderBesideOneOfEightCharacters) {
  std::filesystem::rename(ini, root / "velmoran/VELMORAN.INI");  // found all the same
  EXPECT_EQ(Load(), Messages{});
  EXPECT_EQ(state->DataPath, (root / "").string() + "data\\simpatch");
  for (const std::filesystem::path& folder : {root / u8"v\u00E9lmoran", root.root_path()}) {
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    Load();
    EXPECT_EQ(state->DataPath, (folder == root.root_path() ? "" : (root / "").string()) + "data\\simpatch");
  }
}

TEST_F(FilesTest, RosterNamesNationsAndTheLastOfTwo) {
  Bytes bytes = Poked(Poked(Read(roster), 40, 70000), 48, -65534);  // low 16 bits: 4464 and 2
  bytes.replace(0, 8, Bytes("*A*ce\0\xDF*", 8)).replace(8, 32, 32, 'x');
  ::Write(roster, Poked(bytes, bytes.find("Compagnie 190") + 40, 3) + "after");
  ASSERT_EQ(Load(), Messages{});
  const auto look = [this](Long id) {
    std::string_view name;
    GetSquadName(*state, id, name);
    Integer nation = 7;
    GetNation(*state, static_cast<Integer>(id), nation);
    return std::string(name) + " of " + std::to_string(nation);
  };
  EXPECT_EQ(look(4464), Bytes("Ace\0\xDF", 5) + Bytes(31, 'x') + " of 2");  // the 40th byte isn't part of it
  EXPECT_EQ(look(4464 + 65536), "Unknown of 2");                            // the name goes by all 32 bits
  EXPECT_EQ(look(3), "Compagnie 190 Heron of 4");
  EXPECT_EQ(look(0), "Unknown of 7");  // rows 190 to 200 are never searched
}

TEST_F(FilesTest, CampaignPeriodsAndControlWords) {
  const Bytes campaign = Read(dat);
  const auto periodOn = [&](std::int64_t day) {
    ::Write(dat, Poked(campaign, 3200, 2420496 + day));
    EXPECT_EQ((Load(), Open()), Messages{});
    return state->WarPeriod;
  };
  const int bounds[] = {366, 549, 732, 921, 1104, 1287};
  for (int period = 0; period < 6; ++period) {
    EXPECT_EQ(periodOn(bounds[period] - 1), period);
    EXPECT_EQ(periodOn(bounds[period]), period + 1);
  }
  EXPECT_EQ(periodOn(-2147483648LL - 2420496), 0);
  // The sample's lists have 2 and 3 entries, so the second control word stands 80 bytes further on.
  ::Write(dat, Poked(Poked(campaign, 3216, -1, 2), 3460, 0x12340003));
  EXPECT_EQ((Load(), Open()), Messages{});
  EXPECT_EQ(Join(std::vector{state->TypeOddsGate, state->ShiftAxis}), "-1,3");
  for (const auto& path : {mis, dat}) ::Write(path, "short");
  Load();
  EXPECT_NE(Open().at(0).find("campgn01.dat, date at"), Bytes::npos);  // of two invalid files, the one read first
}

TEST_F(FilesTest, MissionFieldsAtTheirOffsetsAndEveryByteBack) {
  Bytes bytes = Read(mis);
  const std::size_t head = 17, second = head + 216 + 46;  // record 0 and its second waypoint
  for (const std::size_t at : {12U, 16U, 20U, 24U, 180U}) bytes = Poked(bytes, head + at, Long(200'000 + at));
  for (const std::size_t at : {0U, 12U, 16U, 20U, 29U, 36U, 42U}) bytes = Poked(bytes, second + at, Long(300'000 + at));
  for (const std::size_t at : {28U, 33U, 34U, 35U, 40U, 41U}) bytes = Poked(bytes, second + at, Long(at), 1);
  ::Write(mis, bytes + "after");
  ASSERT_EQ((Load(), Open()), Messages{});
  const MissionRec& flight = state->Missions[0];
  EXPECT_EQ(
      Join(std::vector{flight.FlightType, flight.HeadLong16, flight.MissionType, flight.HeadLong24, flight.Target}),
      "200012,200016,200020,200024,200180");
  const WaypointRec& point = flight.Waypoints[1];
  EXPECT_EQ(Join(std::vector{point.WPLong0, point.Lon, point.Lat, point.WPLong20, point.AltBytes, point.WPLong36,
                             point.ActionParam, Long{point.WPBytes[4]}, Long{point.WPByte33}, Long{point.WPByte34},
                             Long{point.WPByte35}, Long{point.Formation}, Long{point.Action}}),
            "300000,300012,300016,300020,300029,300036,300042,28,33,34,35,40,41");
  EXPECT_EQ(Join(flight.Planes), "21,21,21,21,-1,-1,-1,-1,-1,-1,-1,-1");
  EXPECT_EQ(Join(std::vector{flight.NumAircraft, flight.Pilots[3], flight.SlotExtra[3], state->PlayerFlight,
                             state->Missions[3].EscortedFlight, state->LoadedCount}),
            "4,191,0,1,22,87");
  EXPECT_EQ(Composed(), bytes);
  state->Missions[3].EscortFlag = -1;  // its link isn't written
  EXPECT_EQ(Composed().size(), bytes.size() - 4);
  state->Missions[0].WPCount = 0;  // the record shrinks by its waypoints; the next one in play follows
  state->Removed[1] = -1;
  EXPECT_EQ(Composed().substr(0, 233), Poked(bytes.substr(0, 233), 17 + 192, 0));
  EXPECT_EQ(Composed().substr(17 + 364, 4), Bytes("\2\0\0\0", 4));
}

}  // namespace
