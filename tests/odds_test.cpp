// velmoran-odds, run as a player runs it, and compared with the tool's own massage.
#include "campaign_folder.h"
#include "state/numbering.h"

using namespace velmoran;

namespace {

namespace fs = std::filesystem;

class OddsTest : public CampaignFolder {
 protected:
  static Output Odds(const std::string& arguments, const Bytes& typed = "") {
    return Run("\"" VELMORAN_ODDS "\" " + arguments, typed);
  }
  // The lines of a CSV file but the first.
  static std::vector<std::string> Rows(const fs::path& csv) {
    std::vector<std::string> rows;
    std::istringstream lines(Read(csv));
    for (std::string line; std::getline(lines, line);) rows.push_back(line);
    rows.erase(rows.begin());
    return rows;
  }
  // The line that the CSV file must have for a seed, from the tool's own massage.
  std::string Expected(std::uint32_t seed, const std::string& plan) {
    Load();
    Open(plan);
    const Long player = state->PlayerFlight;
    if (seed != 0) state->Random.seed(seed);
    const Messages messages = Press(MassageB_Click);
    std::string line = std::to_string(seed);
    if (!messages.empty() && messages.back() == "failed") return line + ",invalid size" + std::string(21, ',');
    Long planes = 0;
    Table<Long, 14> types{};
    for (Long row = 0; row < state->LoadedCount; ++row) {
      if (state->Removed[row] != InPlay) continue;
      planes += state->Missions[row].NumAircraft;
      ++types[state->Missions[row].MissionType];
    }
    const MissionRec& own = state->Missions[player];
    const bool gone = state->Removed[player] != InPlay;
    line += ",complete," + fakes::Join(std::vector{state->MissionCount, planes, types[TypeEscort]}) + ",";
    line += gone ? ",,1," : fakes::Join(std::vector{own.MissionType, own.NumAircraft, Long{0}}) + ",";
    return line + std::to_string(messages.size()) + "," + fakes::Join(types);
  }
  std::map<fs::path, Bytes> Files() const {
    std::map<fs::path, Bytes> files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      if (entry.is_regular_file()) files[entry.path()] = Read(entry.path());
    }
    return files;
  }
};

TEST_F(OddsTest, PrintsTheSameBytesAndChangesNoFile) {
  const auto before = Files();
  EXPECT_EQ(Odds("--massages 30 --csv rows.csv ../campaign/campgn01.mis"),
            (Output{Read(VELMORAN_TEST_DATA "/odds.txt"), "", 0}));
  for (const char* made : {"typed", "output", "errors", "rows.csv"}) fs::remove(made);
  EXPECT_TRUE(Files() == before);
}

TEST_F(OddsTest, RowsAreThoseOfTheToolsMassage) {
  const std::size_t escort = intact.find(Bytes("\7\0\0\0\5\0\0\0", 8));  // flight 7 of squadron 5
  const Bytes crowded = Replaced(Read(ini), "\"Type 1, Recon\",                        8000, 16000, 1, 3",
                                 "\"Type 1, Recon\", 8000, 16000, 0, 3");
  const struct {
    const char* name;
    Bytes mission, setup;
    const char* plan;
  } cases[] = {
      {"ordinary day", intact, Read(ini), "../campaign/campgn01.mis"},
      {"largest day", intact, Read(ini), "../campaign/campgn02.mis"},
      {"a player's flight that may go", Poked(Poked(intact, 8, 0), 17, 100), Read(ini), "../campaign/campgn01.mis"},
      {"an escort of nothing", Poked(intact, escort + 216, 4), Read(ini), "../campaign/campgn01.mis"},
      {"some end early", intact, crowded, "../campaign/campgn01.mis"},
  };
  for (const auto& [name, mission, setup, plan] : cases) {
    SCOPED_TRACE(name);
    Write(mis, mission);
    Write(ini, setup);
    Odds("--massages 40 --csv rows.csv " + std::string(plan));
    const auto rows = Rows("rows.csv");
    ASSERT_EQ(rows.size(), 41U);
    for (const std::uint32_t seed : {0U, 1U, 2U, 13U, 40U}) EXPECT_EQ(rows[seed], Expected(seed, plan));
  }
}

TEST_F(OddsTest, WarnsOnlyOfWhatCanActOnThePlan) {
  const struct {
    const char* name;
    const char* part;  // of a setup file
    const char* other;
    const char* warning;  // as it begins, or "" for none
  } cases[] = {
      {"template", "", "", ""},
      {"factor", "0.90, 1.00, 0.90", "0.90, 1.60, 0.90", "Periods row 3 SizeFactor 1 is 1.6: with MissionDefs row 12"},
      {"factor of another period", "0.75, 0.70", "0.75, 2.70", ""},
      {"factor of nation 0, which has a cap", "0.90, 1.00, 0.90", "3.00, 1.00, 0.90", ""},
      {"factor that rounds to 12", "0.90, 1.00, 0.90", "0.90, 1.5625, 0.90", ""},
      {"too many planes", "2000, 4000,  2, 5", "2000, 4000,  2, 13", "MissionDefs row 2 MaxPlanes 13 (Attack): a"},
      {"too many planes for a nation that flies none", "10000, 16000, 1, 2", "10000, 16000, 1, 13", ""},
      {"no planes", "8000, 16000, 1, 3", "8000, 16000, 0, 3", "MissionDefs row 1 MinPlanes 0 (Recon): a flight that"},
      {"no planes for fighters", "2000, 5000,  2, 4", "2000, 5000,  0, 4", ""},
      {"no pilots left", "8000, 15000, 3, 6", "8000, 15000, 0, 6", "MissionDefs row 4 MinPlanes 0 (CAP): a flight of"},
      {"escorts", "charges\", 0, 0", "charges\", 0, 0.1", "TypeOdds row 7 Odds 1 is 0.1 (Escort): an escort that"},
      {"odds of removal", "0.80, 0.35, 0.50", "0.80, 35, 0.50", "Periods row 3 RemoveOdds is 35, but odds go from"},
      {"odds of a class", "0.30, 0.40, 0", "0.30, -0.40, 0", "ClassOdds row 1 second value is -0.4, but odds go"},
      {"odds of a class that isn't there", "0.30, 0.30, 0", "7, 8, 9", ""},
      {"odds of patrols", "0.15, 0.40", "0.15, 40", "TypeOdds row 4 Odds 1 (CAP) is 40, but odds go from 0"},
      {"odds of a mission that a nation doesn't fly", "0.10, 0.10, 0.10, 0.10\n\"SQ", "0.10, 0.10, 0.10, 10\n\"SQ", ""},
      {"odds of patrols that move nothing", "0,    0.50, 0.40, 0.40", "2,    0.50, 0.40, 0.40", ""},
      {"class odds together", "0.30, 0.40, 0", "0.7, 0.5, 0", "ClassOdds row 1 first value 0.7 and second value 0.5"},
      {"fewest above most", "8000, 15000, 3, 6", "8000, 15000, 6, 3",
       "MissionDefs row 4 MinPlanes 6 is above MaxPlanes"},
      {"lowest above highest", "8000, 15000, 3", "15000, 8000, 3", "MissionDefs row 4 MinAlt 15000 is above MaxAlt 8"},
      {"aircraft's lowest above highest", "2, 4000, 18000", "2, 18000, 4000", "Aircraft row 21 MinAlt 18000 is above"},
      {"mission above aircraft", "8000, 15000, 3", "17000, 19000, 3", "MissionDefs row 4 MinAlt 17000 (CAP) is above"},
      {"mission just above aircraft", "8000, 15000, 3", "13500, 15000, 3", ""},
      {"altitudes that stay", "0,    0,     2, 4", "9,    0,     2, 4", ""},
      {"odds of grouping, which nothing uses", "0.35, 0.50", "0.35, 50", ""},
  };
  const Bytes setup = Read(ini), aircraft = Read(txt);
  for (const auto& [name, part, other, warning] : cases) {
    SCOPED_TRACE(name);
    const bool inSetup = setup.find(part) != Bytes::npos;
    ASSERT_TRUE(inSetup || aircraft.find(part) != Bytes::npos);
    Write(ini, inSetup ? Replaced(setup, part, other) : setup);
    Write(txt, inSetup ? aircraft : Replaced(aircraft, part, other));
    const Bytes text =
        std::regex_replace(Odds("--massages 100 ../campaign/campgn01.mis").text, std::regex("\n  "), " ");
    EXPECT_NE(text.find(*warning == 0 ? "\nNo warnings about" : Bytes("\nWarning 1: ") + warning), Bytes::npos) << text;
    EXPECT_EQ(text.find("Warning 2:"), Bytes::npos) << text;
  }
  const Bytes largest = Odds("../campaign/campgn02.mis").text;
  EXPECT_NE(largest.find("\nMassages: 1000."), Bytes::npos) << largest;
  EXPECT_NE(largest.find("\nNo warnings"), Bytes::npos) << largest;
}

TEST_F(OddsTest, RefusesInTheWordsOfTheTool) {
  const std::string message = MassageOf(Poked(intact, 8, 201)).at(0);
  EXPECT_EQ(Odds("../campaign/campgn01.mis"), (Output{"message: " + message + "\n", "", 1}));
  Write(mis, intact);
  const Bytes ask = "ask: Open Mission File [*.mis]\n", missing = "../campaign/nothing.mis";
  EXPECT_EQ(Odds("", missing + "\n"), (Output{ask + "message: " + (Load(), Open(missing)).at(0) + "\n", "", 1}));
  EXPECT_EQ(Odds("", "\n"), (Output{ask, "", 0}));
  for (const char* wrong : {"--massages 0", "--massages 100001", "--massages 1x", "--massages", "--seed 7",
                            "a.mis b.mis", "--csv ../velmoran/Velmoran.ini ../campaign/campgn01.mis",
                            "--csv ../campaign/campgn01.mis ../campaign/campgn01.mis"}) {
    const Output output = Odds(wrong);
    EXPECT_EQ(output, (Output{"", output.errors, 2})) << wrong;
    EXPECT_TRUE(std::regex_match(output.errors, std::regex("velmoran-odds: [^\n]+\r?\n"))) << output;
  }
  EXPECT_EQ(Read(mis), intact);
}

}  // namespace
