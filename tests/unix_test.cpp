// What only a Unix system can show: case in names, odd files, permissions, a disk that can't be flushed.
#include <unistd.h>

#include <cerrno>

#include "campaign_folder.h"
#include "files/disk.h"
#include "state/failure.h"

using namespace velmoran;

namespace {

namespace fs = std::filesystem;
using UnixTest = CampaignFolder;

int flushError = 0;  // of the next flush, a value of errno

}  // namespace

// Replaces the system's, which no ordinary disk makes fail.
extern "C" int fsync(int /*file*/) {
  errno = flushError;
  return flushError == 0 ? 0 : -1;
}

namespace {

// To root, who may open anything, it is forbidden by being someone else meanwhile.
void Forbid(const fs::path& file, bool forbidden) {
  EXPECT_EQ(seteuid(getuid()), 0);
  fs::permissions(file, forbidden ? fs::perms::none : fs::perms::owner_all);
  EXPECT_EQ(seteuid(forbidden && getuid() == 0 ? 65534 : getuid()), 0);
}

TEST_F(UnixTest, WriteThatFailsCanBePressedAgain) {
  EXPECT_EQ(MassageOf(intact), Messages{});
  const Bytes plan = Composed();
  const auto write = [this](int error) {
    flushError = error;
    return Press(WriteB_Click);
  };
  const Bytes again = " The massaged flights are kept: remove the cause, and press Write again before you exit.";
  Forbid(mis, true);
  EXPECT_EQ(write(0), Messages{"Error # 70 " + mis.string() +
                               " can't be opened for writing: permission denied. Nothing was written." + again});
  Forbid(mis, false);
  EXPECT_EQ(Read(mis), intact);
  EXPECT_EQ(write(EIO), Messages{"Error # 75 " + mis.string() +
                                 " can't be completed on the disk: system error 5. "
                                 "The file may be incomplete now." +
                                 again});
  EXPECT_EQ(write(EDQUOT).at(0).substr(0, 11), "Error # 61 ");
  EXPECT_EQ(fakes::form.buttons, "--RWE");
  EXPECT_EQ(write(EINVAL), Messages{});  // a file system that can't flush
  EXPECT_EQ(Read(mis), plan);
}

TEST_F(UnixTest, FilesThatCantBeRead) {
  Load();
  const Bytes opens = " can't be opened: ", unchanged = ". No file was changed. ",
              choose = "Choose the mission file of your campaign, campgn??.mis.",
              restore = "If it is the right file, it is damaged: restore your copy of the campaign folder.";
  EXPECT_EQ(Open(".."), Messages{"Error # 75 " + root.string() + opens + "it is a folder" + unchanged + choose});
  EXPECT_EQ(Open("/dev/null"),
            Messages{"Error # 75 /dev/null" + opens + "it is not a regular file" + unchanged + choose});
  EXPECT_EQ(Open("a\tb\xC2\x9B"), Messages{"Error # 53 " + (root / "velmoran/a?b?").string() + opens +
                                           "the file does not exist" + unchanged + choose});
  Forbid(mis, true);
  EXPECT_EQ(Open(), Messages{"Error # 70 " + mis.string() + opens + "permission denied" + unchanged +
                             "Check that you may read it."});
  Forbid(mis, false);
  fs::resize_file(mis, (256 << 20) + 1);
  EXPECT_EQ(Open(), Messages{"Error # 75 " + mis.string() + " is larger than 256 MiB" + unchanged + restore});
}

TEST_F(UnixTest, PathsOfAnotherSystem) {
  const auto found = [](const std::string& path) {
    try {
      return InputFile(path, "").Path();
    } catch (const Failure&) {
      return std::string("nothing");
    }
  };
  EXPECT_EQ(found("..\\CAMPAIGN\\.\\Campgn01.MIS"), mis.string());
  EXPECT_EQ(found((root / "Campaign/campgn01.DAT").string()), dat.string());
  EXPECT_EQ(found("..\\campaign\\campgn03.mis"), "nothing");
  EXPECT_EQ(found(Bytes("../campaign/campgn01.mis\0x", 26)), "nothing");
  fs::create_directory_symlink(root / "campaign", "link");
  EXPECT_EQ(found("link/../data/simpatch/squadron.dat"),
            (root / "velmoran/link/../data/simpatch/squadron.dat").string());
  fs::create_directories("odd\\name/A\\B");
  fs::create_directories("odd/name");
  for (const char* file : {"odd\\name/A\\B/file", "odd/name/file"}) ::Write(file, "");
  EXPECT_EQ(found("odd\\name\\a\\B\\file"), "nothing");  // "\" within a name that exists doesn't separate
  EXPECT_EQ(found("odd\\name/A\\B\\FILE"), "nothing");
  EXPECT_EQ(found((root / "velmoran/odd\\name/A\\B/FILE").string()), (root / "velmoran/odd\\name/A\\B/file").string());
  EXPECT_EQ(found("odd\\NAME\\file"), (root / "velmoran/odd/name/file").string());
  fs::create_symlink("/nowhere", "PLAN.MIS");  // a link to a disk that isn't there
  ::Write("plan.mis", "another");
  EXPECT_EQ(found("PLAN.MIS"), "nothing");
  EXPECT_EQ(found("Plan.mis"), "nothing");  // of several, the first in byte order
  EXPECT_EQ(found(Bytes(5000, 'x')), "nothing");
  fs::create_directory(root / "Campaign");  // the exact name goes first
  EXPECT_EQ(found("../Campaign/campgn01.mis"), "nothing");
}

TEST_F(UnixTest, ReportGetsExactlyTheNameThatIsTyped) {
  Load();
  Open();
  for (const char* other : {"NOTES.TXT", "missionreport.TXT"}) ::Write(other, "kept");
  EXPECT_EQ(Press(ReportB_Click, "notes.txt"), Messages{});
  EXPECT_EQ(Press(ReportB_Click), Messages{});
  EXPECT_EQ(Press(ReportB_Click, "..\\CAMPAIGN\\Report.TXT"), Messages{});
  EXPECT_EQ(Press(ReportB_Click, "new/").size(), 1U);  // a folder, not a file called "new"
  EXPECT_EQ(Read("NOTES.TXT") + Read("missionreport.TXT"), "keptkept");
  EXPECT_EQ(Read("notes.txt"), Read("MissionReport.txt"));
  EXPECT_EQ(Read("notes.txt"), Read(root / "campaign/Report.TXT"));
}

TEST_F(UnixTest, WriteGoesToTheFileThatWasOpened) {
  Load();
  EXPECT_EQ(Open("..\\Campaign\\CAMPGN01.mis"), Messages{});
  EXPECT_EQ(state->MisPath, "..\\Campaign\\CAMPGN01.mis");
  ::Write(root / "campaign/CAMPGN01.mis", "another");  // since then
  EXPECT_EQ((Press(MassageB_Click), Press(WriteB_Click)), Messages{});
  EXPECT_EQ(Read(root / "campaign/CAMPGN01.mis"), "another");
  EXPECT_EQ(Read(mis), Composed());
}

TEST_F(UnixTest, DialogsTakeAnyNameAndKeepNothing) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("HOME", root.c_str(), 1);
  unsetenv("XDG_CONFIG_HOME");
  const Bytes output = Window(
      "open\n..\\campaign\\campgn0?.dat\n..\ncampaign\ncampgn01.mis\nreport\na \"b c\" "
      "?.txt\nreport\n..\\campaign\\Report\nexit\n");
  const Bytes asked = "ask: Open Mission File [campgn0?.dat]\n";  // again after each change of folder
  EXPECT_NE(output.find(asked + asked + asked + "target: " + mis.string()), Bytes::npos) << output;
  EXPECT_TRUE(output.ends_with("status 0"));
  EXPECT_TRUE(fs::exists("a \"b c\" ?.txt") && fs::exists("../campaign/Report"));
  EXPECT_FALSE(fs::exists(root / ".config"));
}

TEST_F(UnixTest, WindowWithoutADisplay) {
  for (const std::string display : {"-u DISPLAY", "DISPLAY=:nowhere"}) {
    EXPECT_EQ(Run("env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY " + display + " \"" VELMORAN_WINDOW "\"", ""), "status 1");
    EXPECT_EQ(Read("errors"), "velmoran: there is no display that the window can use; velmoran-console does without\n");
  }
}

}  // namespace
