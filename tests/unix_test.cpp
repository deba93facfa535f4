// What only a Unix system can be made to show: files of other names, limits, full devices.
#include <sys/resource.h>

#include <csignal>

#include "campaign_folder.h"
#include "files/path.h"

using namespace velmoran;

namespace {

using UnixTest = CampaignFolder;

TEST_F(UnixTest, FailedWriteKeepsTheFlightsUntilItSucceeds) {
  MassageOf(sound);
  const Bytes massaged = Composed();
  const std::string place = "../campaign/campgn01.mis",
                    kept = "; the massaged flights are kept: mend the cause and press Write again";
  std::filesystem::rename(root / "campaign", root / "elsewhere");
  EXPECT_EQ(Press(WriteB_Click), Messages{"Error # 53 " + place +
                                          " can't be opened for writing: No such file or directory; "
                                          "nothing was written" +
                                          kept});
  std::filesystem::rename(root / "elsewhere", root / "campaign");
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{1000, RLIM_INFINITY};
  setrlimit(RLIMIT_FSIZE, &limit);
  const Messages said = Press(WriteB_Click);
  limit.rlim_cur = RLIM_INFINITY;
  setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_EQ(said, Messages{"Error # 61 " + place + ": only 1000 of " + std::to_string(massaged.size()) +
                           " bytes could be written: File too large; it is incomplete now" + kept});
  EXPECT_EQ(fakes::form.buttons, "--RWE");
  EXPECT_EQ(Press(WriteB_Click), Messages{});
  EXPECT_EQ(Read(mis), massaged);
  EXPECT_TRUE(Press(ReportB_Click, "/dev/full").at(0).starts_with("Error # 61 /dev/full: only 0 of "));
  EXPECT_TRUE(Press(ReportB_Click, "..").at(0).starts_with("Error # 75 .. can't be opened for writing: "));
}

TEST_F(UnixTest, PathsOfAnotherSystem) {
  const auto opens = [](const std::string& path) { return OpenForReading(path) != nullptr; };
  EXPECT_TRUE(opens("..\\CAMPAIGN\\Campgn01.MIS"));
  EXPECT_TRUE(opens((root / "Campaign/campgn01.DAT").string()));
  EXPECT_FALSE(opens("..\\campaign\\campgn03.mis"));
  EXPECT_FALSE(opens("../campaign"));
  EXPECT_FALSE(opens("/dev/null"));
  EXPECT_FALSE(opens(Bytes("../campaign/campgn01.mis\0x", 26)));
  ::Write("odd\\name", "as it stands");
  EXPECT_TRUE(opens("odd\\name"));
  std::filesystem::create_directory(root / "Campaign");  // written so, it goes first
  EXPECT_FALSE(opens("../Campaign/campgn01.mis"));
  OpenForWriting("..\\CAMPAIGN\\Report.TXT").reset();
  EXPECT_TRUE(std::filesystem::exists(root / "Campaign/Report.TXT"));
}

TEST_F(UnixTest, DialogsTakeAnyNameAndKeepNothing) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("HOME", root.c_str(), 1);
  unsetenv("XDG_CONFIG_HOME");
  const Said said = Window(
      "open\n..\\campaign\\campgn0?.dat\n..\ncampaign\ncampgn01.mis\nreport\na \"b c\" "
      "?.txt\nreport\n..\\campaign\\Report\nexit\n");
  const Bytes asked = "ask: Open Mission File [campgn0?.dat]\n";  // again behind each folder that is gone to
  EXPECT_NE(said.text.find(asked + asked + asked + "target: " + mis.string()), Bytes::npos) << said;
  EXPECT_TRUE(said.succeeded) << said;
  EXPECT_TRUE(std::filesystem::exists("a \"b c\" ?.txt") && std::filesystem::exists("../campaign/Report"));
  EXPECT_FALSE(std::filesystem::exists(root / ".config"));
}

TEST_F(UnixTest, WindowWithoutADisplay) {
  for (const std::string display : {"-u DISPLAY", "DISPLAY=:nowhere"}) {
    EXPECT_EQ(std::system(
                  ("env -u QT_QPA_PLATFORM -u WAYLAND_DISPLAY " + display + " \"" VELMORAN_WINDOW "\" 2>said").c_str()),
              1 << 8);  // ends with 1
    EXPECT_EQ(Read("said"), "velmoran: there is no display that the window can use; velmoran-console does without\n");
  }
}

}  // namespace
