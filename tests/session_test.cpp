// Whole runs on the sample: states, hints, files.
#include <cstdint>
#include <cstdlib>
#include <new>

#include "campaign_folder.h"

using namespace velmoran;

namespace {

bool counting = false;
long allocations = 0;
std::size_t largestBlock = SIZE_MAX;  // in bytes: there is no memory for a larger one

}  // namespace

void* operator new(std::size_t size) {
  if (counting) ++allocations;
  if (void* memory = size > largestBlock ? nullptr : std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

class SessionTest : public CampaignFolder {
 protected:
  // A number that changes with any byte (FNV-1a).
  static std::uint64_t Digest(const Bytes& bytes) {
    std::uint64_t digest = 0xCBF29CE484222325;
    for (const char byte : bytes) digest = (digest ^ static_cast<Byte>(byte)) * 0x100000001B3;
    return digest;
  }
  // The first line in which the texts differ, or "".
  static std::string FirstDifference(const Bytes& text, const Bytes& expected) {
    const Messages lines = Lines(text), expectedLines = Lines(expected);
    const auto [line, expectedLine] = std::ranges::mismatch(lines, expectedLines);
    const auto shown = [](const Messages& all, auto at) { return at == all.end() ? "the end" : *at; };
    if (text == expected) return "";
    return std::to_string(line - lines.begin() + 1) + ": " + shown(lines, line) + ", not " +
           shown(expectedLines, expectedLine);
  }
};

// A change of behaviour changes data/massaged.txt, the report after the massage of the sample.
TEST_F(SessionTest, WholeRun) {
  ASSERT_EQ((Load(), Open("..\\campaign\\CAMPGN01.MIS")), Messages{});
  Press(ReportB_Click, "before.txt");
  counting = true;
  const Messages shown = Press(MassageB_Click);
  counting = false;
  EXPECT_EQ(shown, Messages{});
  EXPECT_EQ(allocations, 0);
  Press(ReportB_Click, "after.txt");
  EXPECT_EQ(FirstDifference(Read("after.txt"), Read(VELMORAN_TEST_DATA "/massaged.txt")), "");
  EXPECT_EQ(Read(mis), intact);  // until Write is pressed
  EXPECT_EQ(Press(WriteB_Click), Messages{});
  EXPECT_EQ(Digest(Read(mis)), 12810071853802326708U);
  Press(ReportB_Click);  // Cancel: under the name offered
  EXPECT_EQ(FirstDifference(Read("MissionReport.txt"), Read("after.txt")), "");
  const std::string folder = (root / "velmoran").string(), save = "save " + folder + " [MissionReport.txt]";
  EXPECT_EQ(fakes::form.asked, (Messages{"open " + folder + " [*.mis]", save, save, save}));

  ASSERT_EQ((Load(), Open()), Messages{});
  Press(ReportB_Click, "again.txt");
  EXPECT_EQ(FirstDifference(Read("again.txt"), Read("after.txt")), "");
  EXPECT_EQ(Composed(), Read(mis));

  ASSERT_EQ((Load(), Open("../campaign/campgn02.mis")), Messages{});  // the largest plan
  EXPECT_EQ((Press(MassageB_Click), Press(WriteB_Click)), Messages{});
  EXPECT_EQ(Digest(Read(root / "campaign/campgn02.mis")), 5767796093158233986U);
}

TEST_F(SessionTest, WriteWithoutMemoryChangesNothing) {
  ASSERT_EQ(MassageOf(intact), Messages{});
  largestBlock = 4096;
  const Messages shown = Press(WriteB_Click);
  largestBlock = SIZE_MAX;
  EXPECT_EQ(shown,
            Messages{"Error # 7 Not enough memory. No file was changed. The massaged flights are kept: close other "
                     "programs, and press Write again before you exit."});
  EXPECT_EQ(Read(mis), intact);
  EXPECT_EQ(Press(WriteB_Click), Messages{});
}

TEST_F(SessionTest, OpenIsCancelledByItsPatternAndByAnEmptyName) {
  Load();
  for (const char* name : {"*.mis", ""}) EXPECT_EQ(Open(name), Messages{}) << name;
  EXPECT_EQ(fakes::form.buttons, "O---E");
}

TEST_F(SessionTest, PlansWithoutFlightsAndWithoutThePlayer) {
  EXPECT_EQ(MassageOf(Poked(Poked(intact, 13, 0), 8, -99)), Messages{});
  EXPECT_EQ((Press(ReportB_Click), Press(WriteB_Click)), Messages{});
  EXPECT_EQ(Lines(Read("MissionReport.txt")).size(), 10U);
  EXPECT_EQ(Read(mis), Poked(Poked(intact.substr(0, 17), 13, 0), 8, -99));
  EXPECT_EQ(MassageOf(Poked(Poked(intact, 13, 1), 8, 200)), Messages{});  // a row that isn't loaded, of squadron 0
  EXPECT_EQ(state->PlayerFlight, 200);
}

TEST_F(SessionTest, ConsoleTranscript) {
  EXPECT_EQ(
      Console("\n \t \nMassage\nopen\n\n\topen \n../campaign/nothing.mis\nOPEN\r\n../campaign/campgn01.mis\r\n"
              "help me\nreport\n\nmassage\nwrite\nexit\nopen\n"),
      Replaced(Read(VELMORAN_TEST_DATA "/console.txt"), "NOTHING", Native(root / "campaign/nothing.mis")) + "status 0");
  EXPECT_TRUE(std::filesystem::remove("MissionReport.txt"));
  EXPECT_TRUE(Console("open\n../campaign/campgn02.mis\nreport").ends_with("status 0"));  // the input ends in a dialog
  EXPECT_FALSE(std::filesystem::exists("MissionReport.txt"));
  std::filesystem::remove(ini);
  EXPECT_EQ(Console(""), "message: Error # 53 " + Native(ini) +
                             " can't be opened: the file does not exist. Copy Velmoran.ini there, or start Velmoran "
                             "from the folder that has it.\nstatus 1");
}

}  // namespace
