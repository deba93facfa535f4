// What the files say and what of it arrives in the RunState; and the ways in which one can be unsound.
#include "campaign_folder.h"
#include "files/mission_file.h"
#include "files/path.h"
#include "files/roster.h"

using namespace velmoran;

namespace {

using SetupTest = CampaignFolder;

TEST_F(SetupTest, ItemsGoToTheirPlaces) {
  ASSERT_EQ(Load(), Messages{});
  using Numbers = std::vector<double>;
  const auto of = [](const auto& table) { return Numbers(table.begin(), table.end()); };
  EXPECT_EQ(of(state->Periods[0].SizeFactor), (Numbers{0.70, 0.60, 0.65, 0.60, 0}));
  EXPECT_EQ(of(state->Periods[6].SizeFactor), (Numbers{1.10, 1.30, 1.25, 1.20, 0}));
  EXPECT_EQ(of(state->Periods[6].GroupOdds), (Numbers{0.5, 0.6, 0.7, 0.8, 0}));
  EXPECT_EQ(of(state->TypeOdds[4].Odds), (Numbers{0.15, 0.4, 0.3, 0.3, 0}));
  EXPECT_EQ(of(state->SquadGroups[1].Squads), (Numbers{83, 90, -1, -1, 0}));
  EXPECT_EQ(of(state->SquadGroups[2].Squads), (Numbers{121, 124, 127, 130, 0}));
  const MissionDefRec &attack = state->MissionDefs[2], &last = state->MissionDefs[13];
  const AircraftRec& aircraft = state->Aircraft[42];
  const Numbers single{state->Periods[6].RemoveOdds,
                       state->ClassOdds[0].Recon,
                       state->ClassOdds[4].Spotting,
                       state->TypeOdds[13].Odds[3],
                       double(attack.MinAlt),
                       double(attack.MaxAlt),
                       double(attack.MinPlanes),
                       double(attack.MaxPlanes),
                       double(last.MaxPlanes),
                       double(state->GroupCount),
                       double(state->SquadGroups[1].Kind),
                       double(state->SquadGroups[3].Kind),
                       double(aircraft.AircraftClass),
                       double(aircraft.MinAlt),
                       double(aircraft.MaxAlt)};
  EXPECT_EQ(single, (Numbers{0.25, 0.4, 0.25, 0.1, 2000, 4000, 2, 5, 2, 3, 1, -1, 6, 4000, 16000}));
  EXPECT_EQ(state->Aircraft[0].AircraftName, "Brandauer E.I");
  EXPECT_EQ(aircraft.AircraftName, "Castlemore 9 Day");
}

TEST_F(SetupTest, GrammarOfItems) {
  const Bytes rows = Read(txt).substr(Read(txt).find("\"Aircraft 4\""));
  ::Write(txt,
          "\xEF\xBB\xBF \"A, \nlabel,\"Name, with comma\" dropped,\t 3 ,-4.5,  +2000\r\n"
          "label 2,bare \"name\" ,0.5,,\r\"never closed, \r\n\"\xFC\",1.5,2.5,\"9\"\n\n\n,-.0" +
              Bytes(400, '0') + "1,.6\n" + rows);
  ASSERT_EQ(Load(), Messages{});
  const auto expect = [this](Long row, const std::string& name, const std::vector<int>& numbers) {
    const AircraftRec& aircraft = state->Aircraft[row];
    EXPECT_EQ(aircraft.AircraftName, name);
    EXPECT_EQ(std::vector<int>({aircraft.AircraftClass, aircraft.MinAlt, aircraft.MaxAlt}), numbers);
  };
  expect(0, "Name, with comma", {3, -4, 2000});
  expect(1, "bare \"name\" ", {0, 0, 0});
  expect(2, "\xFC", {2, 2, 9});
  expect(3, "", {0, 0, 1});
  expect(4, "Rieslinger Dr.I", {1, 2500, 14000});
}

TEST_F(SetupTest, LimitsOfTheGroups) {
  const Bytes sound = Read(ini);
  const auto loadWith = [&](const Bytes& text, const Bytes& other) {
    ::Write(ini, Bytes(sound).replace(sound.find(text), text.size(), other));
    return Load();
  };
  EXPECT_EQ(loadWith("2, 1, 83, 90\n4,", "0, 1, 5, 1, -32768.5,83,90,1,1\n2"), Messages{});
  EXPECT_EQ(state->SquadGroups[1].Kind, 1);
  EXPECT_EQ(state->SquadGroups[2].Squads, (Table<Integer, 5>{-32768, 83, 90, 1, 1}));
  EXPECT_EQ(loadWith("\n3\n", "\n-1\n"), Messages{});
}

TEST_F(SetupTest, DataPathIsTheFolderBesideOneOfEightCharacters) {
  std::filesystem::rename(ini, root / "velmoran/VELMORAN.INI");  // found all the same
  EXPECT_EQ(Load(), Messages{});
  EXPECT_EQ(state->DataPath, root.string() + "/data\\simpatch");
  fakes::form.directory = "short";
  Load();
  EXPECT_EQ(state->DataPath, "data\\simpatch");
  fakes::form.directory = "/\xC3\xA9t\xC3\xA9/v\xC3\xA9lmoran";
  Load();
  EXPECT_EQ(state->DataPath, "/\xC3\xA9t\xC3\xA9/data\\simpatch");
}

using RosterTest = CampaignFolder;

TEST_F(RosterTest, NamesNationsAndTheLastOfTwo) {
  Bytes bytes = Read(roster);                          // record 0 has lists of 1 and 1 entries
  bytes = Poked(Poked(bytes, 40, 70000), 48, -65534);  // low 16 bits: 4464 and 2
  bytes.replace(0, 8, Bytes("*A*ce\0\xDF*", 8)).replace(8, 32, 32, 'x');
  bytes = Poked(bytes, bytes.find("Compagnie 190") + 40, 3);  // the last record has squadron 3's id
  ::Write(roster, bytes + "behind");
  ASSERT_EQ(Load(), Messages{});
  const auto nameOf = [this](Long id) {
    std::string_view name;
    GetSquadName(*state, id, name);
    return std::string(name);
  };
  EXPECT_EQ(nameOf(4464), Bytes("Ace\0\xDF", 5) + Bytes(31, 'x'));  // the 40th byte isn't part of it
  EXPECT_EQ(nameOf(4464 + 65536), "Unknown");
  EXPECT_EQ(nameOf(3), "Compagnie 190 Heron");
  EXPECT_EQ(nameOf(0), "Unknown");  // rows 190 to 200 are never searched
  Integer nation = 7;
  GetNation(*state, 0, nation);
  EXPECT_EQ(nation, 7);
  GetNation(*state, 4464, nation);
  EXPECT_EQ(nation, 2);
  GetNation(*state, 3, nation);
  EXPECT_EQ(nation, 4);
}

class CampaignDateTest : public CampaignFolder {
 protected:
  // The war period of a day, as Open reads it.
  int PeriodOn(std::int64_t day) {
    ::Write(dat, Poked(sound, 3200, 2420496 + day));
    Load();
    EXPECT_EQ(Open(), Messages{});
    return state->WarPeriod;
  }
  const Bytes sound = Read(dat);
};

TEST_F(CampaignDateTest, PeriodsAndControlWords) {
  const int bounds[] = {366, 549, 732, 921, 1104, 1287};
  for (int period = 0; period < 6; ++period) {
    EXPECT_EQ(PeriodOn(bounds[period] - 1), period);
    EXPECT_EQ(PeriodOn(bounds[period]), period + 1);
  }
  EXPECT_EQ(PeriodOn(-2147483648LL - 2420496), 0);
  EXPECT_EQ(PeriodOn(2147483647LL - 2420496), 6);
  // The sample's lists have 2 and 3 entries, so the second control word stands 80 bytes further on.
  ::Write(dat, Poked(Poked(sound, 3216, -1, 2), 3460, 0x12340003));
  Load();
  EXPECT_EQ(Open(), Messages{});
  EXPECT_EQ(state->TypeOddsGate, -1);
  EXPECT_EQ(state->ShiftAxis, 3);
}

using MissionFileTest = CampaignFolder;

TEST_F(MissionFileTest, EveryFieldAtItsOffsetAndEveryByteBack) {
  Bytes bytes = Read(mis);
  const std::size_t head = 17, second = head + 216 + 46;  // record 0 and its second waypoint
  const std::vector<std::size_t> heads{12, 16, 20, 24, 180}, longs{0, 12, 16, 20, 29, 36, 42},
      singles{28, 33, 34, 35, 40, 41};
  for (const std::size_t offset : heads) bytes = Poked(bytes, head + offset, static_cast<Long>(offset) - 1000000);
  for (const std::size_t offset : longs) bytes = Poked(bytes, second + offset, static_cast<Long>(offset) - 2000000);
  for (const std::size_t offset : singles) bytes = Poked(bytes, second + offset, static_cast<Long>(offset), 1);
  ::Write(mis, bytes + "behind");
  ASSERT_EQ((Load(), Open()), Messages{});
  const MissionRec& flight = state->Missions[0];
  EXPECT_EQ(
      (Table<Long, 5>{flight.FlightType, flight.HeadLong16, flight.MissionType, flight.HeadLong24, flight.Target}),
      (Table<Long, 5>{-999988, -999984, -999980, -999976, -999820}));
  const WaypointRec& point = flight.Waypoints[1];
  EXPECT_EQ((Table<Long, 7>{point.WPLong0, point.Lon, point.Lat, point.WPLong20, point.AltBytes, point.WPLong36,
                            point.ActionParam}),
            (Table<Long, 7>{-2000000, -1999988, -1999984, -1999980, -1999971, -1999964, -1999958}));
  EXPECT_EQ(
      (Table<Byte, 6>{point.WPBytes[4], point.WPByte33, point.WPByte34, point.WPByte35, point.Formation, point.Action}),
      (Table<Byte, 6>{28, 33, 34, 35, 40, 41}));
  EXPECT_EQ(flight.NumAircraft, 4);
  EXPECT_EQ((Table<Long, 4>{flight.Planes[3], flight.Planes[4], flight.Pilots[3], flight.SlotExtra[3]}),
            (Table<Long, 4>{21, -1, 191, 0}));
  EXPECT_EQ(state->PlayerFlight, 1);
  EXPECT_EQ(state->Missions[3].EscortedFlight, 22);
  EXPECT_EQ(state->LoadedCount, 87);

  const auto written = [this] {
    const std::vector<Byte> image = ComposeMissionImage(*state);
    return Bytes(image.begin(), image.end());
  };
  EXPECT_EQ(written(), bytes);
  state->Missions[0].WPCount = 0;  // the record shrinks by its waypoints; the next one follows
  state->Removed[1] = -1;
  EXPECT_EQ(written().substr(0, 233), bytes.substr(0, 17 + 192) + Bytes(4, '\0') + bytes.substr(213, 20));
  EXPECT_EQ(written().substr(17 + 364, 4), Bytes("\2\0\0\0", 4));
}

TEST_F(MissionFileTest, NegativeEscortFlagIsReadAndNotWritten) {
  ASSERT_EQ((Load(), Open()), Messages{});
  const std::size_t size = ComposeMissionImage(*state).size();
  state->Missions[3].EscortFlag = -1;
  EXPECT_EQ(ComposeMissionImage(*state).size(), size - 4);
  const std::size_t third = Read(mis).find(Bytes("\3\0\0\0\2\0\0\0", 8), 17);
  ::Write(mis, Poked(Read(mis), third + 204, -1));
  ASSERT_EQ((Load(), Open()), Messages{});
  EXPECT_EQ(state->Missions[3].EscortedFlight, 22);
}

TEST(PathTest, CharactersAreCodePoints) {
  EXPECT_EQ(DropLastCharacters("X:\\abcdefgh", 8), "X:\\");
  EXPECT_EQ(DropLastCharacters("/a/\xE2\x82\xAC\xF0\x9F\x9B\xA9z", 3), "/a/");
  EXPECT_EQ(DropLastCharacters("ab", 3), "");
  EXPECT_EQ(DropLastCharacters("\x80\x80", 3), "");
}

using PathFolderTest = CampaignFolder;

TEST_F(PathFolderTest, BackslashesAndCaseOfAnotherSystem) {
  const auto opens = [](const std::string& path) { return OpenForReading(path) != nullptr; };
  EXPECT_TRUE(opens("..\\CAMPAIGN\\Campgn01.MIS"));
  EXPECT_TRUE(opens((root / "Campaign/campgn01.DAT").string()));
  EXPECT_FALSE(opens("..\\campaign\\campgn03.mis"));
  EXPECT_FALSE(opens("../campaign"));
  EXPECT_FALSE(opens(Bytes("../campaign/campgn01.mis\0x", 26)));
  ::Write("odd\\name", "as it stands");
  EXPECT_TRUE(opens("odd\\name"));
  std::filesystem::create_directory(root / "Campaign");  // written so, it goes first
  EXPECT_FALSE(opens("../Campaign/campgn01.mis"));
  OpenForWriting("..\\CAMPAIGN\\Report.TXT").reset();
  EXPECT_TRUE(std::filesystem::exists(root / "Campaign/Report.TXT"));
}

}  // namespace
