// Whole runs on the sample: states, hints, files; and whatever is refused leaves the user's file as it was.
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <map>
#include <new>
#include <regex>
#include <sstream>

#include "campaign_folder.h"
#include "files/mission_file.h"
#include "state/rnd.h"

using namespace velmoran;

namespace {

bool counting = false;
long allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  if (counting) ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

TEST(RndTest, TheSequenceIsFixed) {
  RunState run;
  SeedRnd(run);
  const double first = Rnd(run), second = Rnd(run);
  EXPECT_EQ(first * 0x1p24, 1637993);
  EXPECT_EQ(second * 0x1p24, 1872449);
  SeedRnd(run);
  EXPECT_EQ(Rnd(run), first);
}

class SessionTest : public CampaignFolder {
 protected:
  // A number that changes with any byte (FNV-1a).
  static std::uint64_t Digest(const Bytes& bytes) {
    std::uint64_t digest = 0xCBF29CE484222325;
    for (const char byte : bytes) digest = (digest ^ static_cast<Byte>(byte)) * 0x100000001B3;
    return digest;
  }
  Bytes Composed() const {
    const std::vector<Byte> image = ComposeMissionImage(*state);
    return Bytes(image.begin(), image.end());
  }
  // What Massage says of a mission file.
  Messages MassageOf(const Bytes& mission) {
    ::Write(mis, mission);
    EXPECT_EQ((Load(), Open()), Messages{});
    return Massage();
  }
  const Bytes sound = Read(mis);
};

TEST_F(SessionTest, WholeRun) {
  ASSERT_EQ((Load(), Open("..\\campaign\\CAMPGN01.MIS")), Messages{});
  Report("before.txt");
  counting = true;
  const Messages said = Massage();
  counting = false;
  EXPECT_EQ(said, Messages{});
  EXPECT_EQ(allocations, 0);
  Report("after.txt");
  EXPECT_EQ(Read(mis), sound);  // until Write is pressed
  EXPECT_EQ(WriteBack(), Messages{});
  EXPECT_EQ(Digest(sound), 3580439169364927976U);
  EXPECT_EQ(Digest(Read("before.txt")), 27486922087410398U);
  EXPECT_EQ(Digest(Read("after.txt")), 1065258492840753783U);
  EXPECT_EQ(Digest(Read(mis)), 12810071853802326708U);
  Report("");  // Cancel: under the name offered
  EXPECT_EQ(Read("MissionReport.txt"), Read("after.txt"));
  EXPECT_EQ(Show([] { ExitB_Click(); }), Messages{"ended"});
  const std::string folder = (root / "velmoran").string(), save = "save " + folder + " [MissionReport.txt]";
  EXPECT_EQ(fakes::form.asked, (Messages{"open " + folder + " [*.mis]", save, save, save}));

  const Bytes written = Read(mis);
  ASSERT_EQ((Load(), Open()), Messages{});
  Report("again.txt");
  EXPECT_EQ(Read("again.txt"), Read("after.txt"));
  EXPECT_EQ(Composed(), written);
}

TEST_F(SessionTest, TheLargestPlan) {
  ASSERT_EQ((Load(), Open("../campaign/campgn02.mis")), Messages{});
  EXPECT_EQ((Massage(), WriteBack()), Messages{});
  EXPECT_EQ(Digest(Read(root / "campaign/campgn02.mis")), 5767796093158233986U);
}

// Spoils a file as data/faults.txt tells it.
void Spoil(const std::filesystem::path& path, std::istringstream fault) {
  const Bytes sound = Read(path);
  const std::size_t arrow = fault.str().find(" -> ");
  std::string first;
  fault >> first;
  if (arrow != std::string::npos) {
    const auto lines = [](const std::string& text) { return std::regex_replace(text, std::regex(R"(\\n)"), "\n"); };
    const Bytes text = lines(fault.str().substr(0, arrow)), other = lines(fault.str().substr(arrow + 4));
    ::Write(path, Bytes(sound).replace(sound.find(text), text.size(), other));
  } else if (first == "remove") {
    std::filesystem::remove(path);
  } else if (std::int64_t size = 0; first == "cut") {
    fault >> size;
    ::Write(path, sound.substr(
                      0, static_cast<std::size_t>(size < 0 ? static_cast<std::int64_t>(sound.size()) + size : size)));
  } else {
    std::size_t width = 0;
    fault >> width >> size;
    // PLANES is slot 0 of record 0, behind its waypoints and TailLong.
    const std::size_t planes = 17 + 216 + 46 * std::size_t{static_cast<Byte>(sound[17 + 192])} + 4;
    ::Write(path, Poked(sound, first == "PLANES" ? planes : std::stoul(first), size, width));
  }
}

TEST_F(SessionTest, OneFaultAtATime) {
  const std::map<std::string, std::filesystem::path> paths{
      {"ini", ini}, {"txt", txt}, {"roster", roster}, {"mis", mis}, {"dat", dat}};
  std::ifstream faults(VELMORAN_TEST_DATA "/faults.txt");
  const std::regex columns(R"((\w+) \| (\w+) \| (.*) \| (.*))");
  int met = 0;
  for (std::string line; std::getline(faults, line);) {
    std::smatch column;
    if (!std::regex_match(line, column, columns)) continue;
    SCOPED_TRACE(line);
    ++met;
    const std::filesystem::path path = paths.at(column[2]);
    const Bytes intact = Read(path);
    Spoil(path, std::istringstream(column[3]));
    const Bytes spoiled = Read(path);
    std::string message = std::regex_replace(column[4].str(), std::regex("ROOT"), root.string());
    if (column[1] == "load") {
      EXPECT_EQ(Load(), (Messages{message, "failed"}));
    } else {
      message += "; the mission file was not changed";
      EXPECT_EQ(Load(), Messages{});
      if (column[1] == "massage") Open();
      const std::string buttons = fakes::Buttons(), hint = fakes::form.hint, target = fakes::form.target;
      const auto before = std::make_unique<RunState>(*state);
      EXPECT_EQ(column[1] == "open" ? Open() : Massage(), Messages{message});
      EXPECT_EQ(fakes::Buttons() + fakes::form.hint + fakes::form.target, buttons + hint + target);
      EXPECT_EQ(ComposeMissionImage(*state), ComposeMissionImage(*before));
    }
    EXPECT_EQ(Read(path), spoiled);
    ::Write(path, intact);
    const bool again = column[1] != "open" || Open().empty();
    EXPECT_TRUE(again);
  }
  EXPECT_EQ(met, 39);
}

TEST_F(SessionTest, MassageRefusesAPlayersSquadronThatIsTooLarge) {
  Bytes crowd = sound.substr(0, 17);  // 14 flights of squadron 85, without waypoints and pilots
  for (int row = 0; row < 14; ++row) crowd += Poked(Poked(sound.substr(17, 216), 0, row), 192, 0) + Bytes(148, '\xFF');
  const std::string place = "Error # 9 campgn01.mis, player's squadron: number of ",
                    end = "; the mission file was not changed";
  EXPECT_EQ(MassageOf(Poked(crowd, 13, 14)),
            Messages{place + "flights beside the player's 13 is outside 0 to 12" + end});
  EXPECT_EQ(MassageOf(Poked(crowd, 13, 13)), Messages{});
  const std::size_t pilots = 17 + 216 + 4 + 48;  // of flight 0
  for (std::size_t slot = 0; slot < 12; ++slot) crowd = Poked(crowd, pilots + 4 * slot, 5);
  crowd = Poked(crowd, pilots + 364, 5);
  EXPECT_EQ(MassageOf(Poked(crowd, 13, 13)), Messages{});
  EXPECT_EQ(MassageOf(Poked(Poked(crowd, 13, 13), pilots + 728, 5)),
            Messages{place + "pilots 14 is outside 0 to 13" + end});
  ::Write(roster, Poked(Read(roster), Read(roster).find("No. 85") + 48, 5));
  EXPECT_EQ(
      MassageOf(sound),
      Messages{"Error # 9 campgn01.mis, record 0: the nation of its squadron in squadron.dat, 5 is outside 0 to 4" +
               end});
}

TEST_F(SessionTest, OfTwoUnsoundFilesTheCampaignFileIsNamed) {
  ::Write(mis, "short");
  ::Write(dat, "short");
  Load();
  EXPECT_TRUE(Open().at(0).starts_with("Error # 62 campgn01.dat, date"));
}

TEST_F(SessionTest, PlansWithoutFlightsAndWithoutThePlayer) {
  EXPECT_EQ(MassageOf(Poked(Poked(sound, 13, 0), 8, -99)), Messages{});
  EXPECT_EQ(WriteBack(), Messages{});
  EXPECT_EQ(Read(mis), Poked(Poked(sound.substr(0, 17), 13, 0), 8, -99));
  EXPECT_EQ(MassageOf(Poked(Poked(sound, 13, 1), 8, 200)), Messages{});  // a row that isn't loaded, of squadron 0
  EXPECT_EQ(state->PlayerFlight, 200);
}

TEST_F(SessionTest, BrokenEscortLinkIsToldAndTheMassageGoesOn) {
  const std::size_t escort = sound.find(Bytes("\7\0\0\0\5\0\0\0", 8));  // flight 7 of squadron 5
  EXPECT_EQ(MassageOf(Poked(sound, escort + 216, 4)), Messages{"Error: Escort flight not found : 2"});
  EXPECT_EQ(fakes::Buttons(), "RWE");
}

TEST_F(SessionTest, InvalidSizeEndsTheProgramWithTheFileUntouched) {
  Bytes setup = Read(ini);
  ::Write(ini, setup.replace(setup.find("8000, 16000, 1, 3"), 17, "8000, 16000, 0, 0"));
  EXPECT_EQ(MassageOf(sound), (Messages{"Invalid number of planes for flight22", "failed"}));
  EXPECT_EQ(Read(mis), sound);
}

TEST_F(SessionTest, FailedWriteKeepsTheFlightsUntilItSucceeds) {
  MassageOf(sound);
  const Bytes massaged = Composed();
  const std::string kept = "; the massaged flights are kept: mend the cause and press Write again";
  std::filesystem::rename(root / "campaign", root / "elsewhere");
  EXPECT_EQ(WriteBack(), Messages{"Error # 53 ../campaign/campgn01.mis can't be opened for writing: No such file or "
                                  "directory; nothing was written" +
                                  kept});
  EXPECT_EQ(fakes::Buttons(), "RWE");
  std::filesystem::rename(root / "elsewhere", root / "campaign");
  std::signal(SIGXFSZ, SIG_IGN);
  const auto limit = [](rlim_t bytes) {
    const rlimit cut{bytes, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &cut);
  };
  limit(1000);
  const Messages said = WriteBack();
  limit(RLIM_INFINITY);
  EXPECT_EQ(said, Messages{"Error # 61 ../campaign/campgn01.mis: only 1000 of " + std::to_string(massaged.size()) +
                           " bytes could be written: File too large; it is incomplete now" + kept});
  EXPECT_EQ(fakes::Buttons(), "RWE");
  EXPECT_EQ(WriteBack(), Messages{});
  EXPECT_EQ(Read(mis), massaged);
  EXPECT_TRUE(Report("/dev/full").at(0).starts_with("Error # 61 /dev/full: only 0 of "));
  EXPECT_TRUE(Report("..").at(0).starts_with("Error # 75 .. can't be opened for writing: "));
}

class ConsoleTest : public CampaignFolder {};

TEST_F(ConsoleTest, TranscriptOfEveryKindOfLine) {
  ::Write("typed",
          Bytes("\n \t \nMassage\nopen\n\n\topen \n../campaign/nothing.mis\nOPEN\r\n../campaign/campgn01.mis\r\n"
                "help me\nreport\n\nmassage\nwrite\nexit\nopen\n"));
  ASSERT_EQ(std::system("\"" VELMORAN_CONSOLE "\" <typed >said"), 0);
  EXPECT_EQ(Read("said"), Read(VELMORAN_TEST_DATA "/console.txt"));
  EXPECT_NE(Read("MissionReport.txt"), "");

  ::Write("typed", "open\n../campaign/campgn02.mis\nreport");  // the input ends in a dialog: the form closes
  std::filesystem::remove("MissionReport.txt");
  EXPECT_EQ(std::system("\"" VELMORAN_CONSOLE "\" <typed >said"), 0);
  EXPECT_FALSE(std::filesystem::exists("MissionReport.txt"));

  std::filesystem::remove(ini);
  EXPECT_NE(std::system("\"" VELMORAN_CONSOLE "\" <typed >said"), 0);
  EXPECT_EQ(Read("said"), "message: Error # 53 Velmoran.ini can't be opened: No such file or directory\n");
}

}  // namespace
