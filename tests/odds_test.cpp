// velmoran-odds, run as a player runs it, and compared with the tool's own massage.
#include <numeric>

#include "campaign_folder.h"
#include "state/numbering.h"

using namespace velmoran;

namespace {

namespace fs = std::filesystem;

class OddsTest : public CampaignFolder {
 protected:
  static Bytes Odds(const std::string& arguments, const Bytes& typed = "") {
    return Run("\"" VELMORAN_ODDS "\" " + arguments, typed);
  }
  // The line that the CSV file must have for a seed, from the tool's own massage.
  std::string Expected(std::uint32_t seed) {
    Load();
    Open();
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
            Read(VELMORAN_TEST_DATA "/odds.txt") + "status 0");
  for (const char* made : {"typed", "output", "errors", "rows.csv"}) fs::remove(made);
  EXPECT_TRUE(Files() == before);
}

TEST_F(OddsTest, RowsAreThoseOfTheToolsMassage) {
  const std::size_t escort = intact.find(Bytes("\7\0\0\0\5\0\0\0", 8));  // flight 7 of squadron 5
  const struct {
    const char* name;
    Bytes mission, setup;
  } cases[] = {
      {"ordinary day", intact, Read(ini)},
      {"a player's flight that may go", Poked(Poked(intact, 8, 0), 17, 100), Read(ini)},
      {"an escort of nothing", Poked(intact, escort + 216, 4), Read(ini)},
      {"some end early", intact, Replaced(Read(ini), "8000, 16000, 1, 3", "8000, 16000, 0, 3")},
  };
  for (const auto& [name, mission, setup] : cases) {
    SCOPED_TRACE(name);
    Write(mis, mission);
    Write(ini, setup);
    Odds("--massages 40 --csv rows.csv ../campaign/campgn01.mis");
    const Messages lines = Lines(Read("rows.csv"));
    ASSERT_EQ(lines.size(), 42U);
    for (const std::uint32_t seed : {0U, 1U, 2U, 13U, 40U}) EXPECT_EQ(lines[seed + 1], Expected(seed));
  }
}

TEST_F(OddsTest, PrintsTheFiguresOfItsRows) {
  const Bytes text = Odds("--csv rows.csv ../campaign/campgn01.mis");
  std::vector<int> flights;
  for (const std::string& row : Lines(Read("rows.csv"))) {
    const std::size_t at = row.find("complete,");
    if (at != Bytes::npos) flights.push_back(std::stoi(row.substr(at + 9)));
  }
  ASSERT_EQ(flights.size(), 1001U);
  const int next = flights.front(), tenths = (std::accumulate(flights.begin() + 1, flights.end(), 0) + 50) / 100;
  std::sort(flights.begin() + 1, flights.end());  // a value's rank is now its place
  const auto& rank = flights;
  EXPECT_TRUE(std::regex_search(
      text, std::regex("\nFlights +" + std::to_string(tenths / 10) + "\\." + std::to_string(tenths % 10) + " +" +
                       std::to_string(rank[50]) + " +" + std::to_string(rank[500]) + " +" + std::to_string(rank[950]) +
                       " +" + std::to_string(next) + "\n")))
      << text;
}

TEST_F(OddsTest, WarnsOnlyOfWhatCanActOnThePlan) {
  for (const auto& row : DataRows("warnings.txt")) {
    SCOPED_TRACE(row.at(0));
    const fs::path& file = row.at(1) == "ini" ? ini : txt;
    const Bytes original = Read(file), warning = row.at(3);
    Write(file, Changed(original, row.at(2)));
    const Bytes text = std::regex_replace(Odds("--massages 100 ../campaign/campgn01.mis"), std::regex("\n  "), " ");
    EXPECT_NE(text.find(warning == "none" ? "\nNo warnings about" : "\nWarning 1: " + warning), Bytes::npos) << text;
    EXPECT_EQ(text.find("Warning 2:"), Bytes::npos) << text;
    Write(file, original);
  }
  const Bytes largest = Odds("../campaign/campgn02.mis");
  EXPECT_NE(largest.find("\nMassages: 1000."), Bytes::npos) << largest;
  EXPECT_NE(largest.find("\nNo warnings"), Bytes::npos) << largest;
}

TEST_F(OddsTest, RefusesInTheWordsOfTheTool) {
  const std::string message = MassageOf(Poked(intact, 8, 201)).at(0);
  EXPECT_EQ(Odds("../campaign/campgn01.mis"), "message: " + message + "\nstatus 1");
  Write(mis, intact);
  const Bytes ask = "ask: Open Mission File [*.mis]\n", missing = "../campaign/nothing.mis";
  EXPECT_EQ(Odds("", missing + "\n"), ask + "message: " + (Load(), Open(missing)).at(0) + "\nstatus 1");
  EXPECT_EQ(Odds("", "\n"), ask + "status 0");
  for (const char* wrong : {"--massages 0", "--massages 100001", "--massages 1x", "--massages", "--seed 7",
                            "a.mis b.mis", "--csv ../velmoran/Velmoran.ini ../campaign/campgn01.mis",
                            "--csv ../campaign/campgn01.mis ../campaign/campgn01.mis",
                            "--csv ../campaign/campgn02.mis ../campaign/campgn01.mis"}) {
    EXPECT_EQ(Odds(wrong), "status 2") << wrong;
    EXPECT_TRUE(std::regex_match(Read("errors"), std::regex("velmoran-odds: [^\n]+\n"))) << Read("errors");
  }
  EXPECT_EQ(Read(mis), intact);
}

}  // namespace
