// velmoran-odds, run as a player runs it, and compared with the tool's own massage.
#include <numeric>

#include "campaign_folder.h"
#include "state/numbering.h"

using namespace velmoran;

namespace {

namespace fs = std::filesystem;

class OddsTest : public CampaignFolder {
 protected:
  // What it prints to standard output; its status and what it says of an error are kept.
  Bytes Odds(const std::string& arguments, const Bytes& typed = "") {
    Write("typed", typed);
    const int result = std::system(("\"" VELMORAN_ODDS "\" " + arguments + " <typed >said 2>errors").c_str());
    status = result > 255 ? result / 256 : result;  // as a shell shows it
    return Read("said");
  }
  // The lines of a CSV file but the first.
  static std::vector<std::string> Rows(const fs::path& csv) {
    std::vector<std::string> rows;
    std::istringstream lines(Read(csv));
    for (std::string line; std::getline(lines, line);) rows.push_back(line);
    rows.erase(rows.begin());
    return rows;
  }
  // The line that the CSV file must have for a seed, from the tool's own massage and report.
  std::string Expected(std::uint32_t seed, const std::string& plan) {
    Load();
    Open(plan);
    const Long player = state->PlayerFlight;
    if (seed != 0) state->Random.seed(seed);
    const Messages messages = Press(MassageB_Click);
    std::string line = std::to_string(seed);
    if (!messages.empty() && messages.back() == "failed") return line + ",invalid size" + std::string(21, ',');
    Press(ReportB_Click, "report.txt");
    const Bytes report = Read("report.txt");
    Long flights = 0, planes = 0;
    for (std::size_t at = 0; (at = report.find("\nNum Planes:    ", at + 1)) != Bytes::npos; ++flights) {
      planes += std::stoi(report.substr(at + 16));
    }
    Table<Long, 14> types{};
    for (Long row = 0; row < state->LoadedCount; ++row) {
      if (state->Removed[row] == InPlay) ++types[state->Missions[row].MissionType];
    }
    const MissionRec& own = state->Missions[player];
    const bool gone = state->Removed[player] != InPlay;
    line += ",complete," + fakes::Join(std::vector{flights, planes, types[TypeEscort]}) + ",";
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

  int status = 0;
};

TEST_F(OddsTest, PrintsTheSameBytesAndChangesNoFile) {
  for (const char* made : {"typed", "said", "errors", "rows.csv"}) Write(made, "");
  const auto before = Files();
  EXPECT_EQ(Odds("--massages 30 --csv rows.csv ../campaign/campgn01.mis"), Read(VELMORAN_TEST_DATA "/odds.txt"));
  EXPECT_EQ(status, 0);
  for (const char* made : {"typed", "said", "errors", "rows.csv"}) Write(made, "");
  EXPECT_TRUE(Files() == before);
}

TEST_F(OddsTest, RowsAreThoseOfTheToolsMassage) {
  const std::size_t escort = sound.find(Bytes("\7\0\0\0\5\0\0\0", 8));  // flight 7 of squadron 5
  const Bytes crowded = Replaced(Read(ini), "\"Type 1, Recon\",                        8000, 16000, 1, 3",
                                 "\"Type 1, Recon\", 8000, 16000, 0, 3");
  const struct {
    const char* name;
    Bytes mission, setup;
    const char* plan;
  } cases[] = {
      {"ordinary day", sound, Read(ini), "../campaign/campgn01.mis"},
      {"largest day", sound, Read(ini), "../campaign/campgn02.mis"},
      {"a player's flight that may go", Poked(Poked(sound, 8, 0), 17, 100), Read(ini), "../campaign/campgn01.mis"},
      {"an escort of nothing", Poked(sound, escort + 216, 4), Read(ini), "../campaign/campgn01.mis"},
      {"some end early", sound, crowded, "../campaign/campgn01.mis"},
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

TEST_F(OddsTest, PrintsTheFiguresOfItsRows) {
  const Bytes said = Odds("--csv rows.csv ../campaign/campgn01.mis");
  std::vector<int> flights;
  const auto rows = Rows("rows.csv");
  for (const auto& row : rows) flights.push_back(std::stoi(row.substr(row.find("complete,") + 9)));
  const int next = flights.front(), count = static_cast<int>(rows.size()) - 1;
  const int tenths = (std::accumulate(flights.begin() + 1, flights.end(), 0) * 10 + count / 2) / count;
  std::sort(flights.begin() + 1, flights.end());  // a value's rank is now its place
  std::ostringstream line;
  line << "Flights +" << tenths / 10 << "\\." << tenths % 10 << " +" << flights[50] << " +" << flights[500] << " +"
       << flights[950] << " +" << next << "\n";
  EXPECT_EQ(count, 1000);
  EXPECT_TRUE(std::regex_search(said, std::regex(line.str()))) << line.str() << said;
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
    const Bytes said = Odds("--massages 100 ../campaign/campgn01.mis");
    const Bytes text = std::regex_replace(said, std::regex("\n  "), " ");
    EXPECT_NE(text.find(*warning == 0 ? "\nNo warnings about" : Bytes("\nWarning 1: ") + warning), Bytes::npos) << said;
    EXPECT_EQ(text.find("Warning 2:"), Bytes::npos) << said;
  }
  EXPECT_NE(Odds("../campaign/campgn02.mis").find("No warnings"), Bytes::npos);
}

TEST_F(OddsTest, RefusesInTheWordsOfTheTool) {
  const Bytes refused = Poked(sound, 8, 201);
  const std::string message = MassageOf(refused).at(0);
  EXPECT_EQ(Odds("../campaign/campgn01.mis"), "message: " + message + "\n");
  EXPECT_EQ(status, 1);
  Write(mis, sound);
  EXPECT_EQ(Odds("", "../campaign/nothing.mis\n"),
            "ask: Open Mission File [*.mis]\nmessage: " + (Load(), Open("../campaign/nothing.mis")).at(0) + "\n");
  EXPECT_EQ(status, 1);
  EXPECT_EQ(Odds("", "\n"), "ask: Open Mission File [*.mis]\n");
  EXPECT_EQ(status, 0);
  for (const char* wrong : {"--massages 0", "--massages 100001", "--massages 1x", "--massages", "--seed 7",
                            "a.mis b.mis", "--csv ../velmoran/Velmoran.ini ../campaign/campgn01.mis",
                            "--csv ../campaign/campgn01.mis ../campaign/campgn01.mis"}) {
    EXPECT_EQ(Odds(wrong), "") << wrong;
    EXPECT_EQ(status, 2) << wrong;
    EXPECT_TRUE(std::regex_match(Read("errors"), std::regex("velmoran-odds: [^\n]+\n"))) << Read("errors");
  }
  EXPECT_EQ(Read(mis), sound);
}

}  // namespace
