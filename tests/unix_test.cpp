// What only a Unix system can be made to show: files of other names, limits, full devices.
#include <dlfcn.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include "campaign_folder.h"
#include "files/path.h"
#include "report/report.h"

using namespace velmoran;

namespace {

namespace fs = std::filesystem;
using UnixTest = CampaignFolder;

bool closingFails = false;

}  // namespace

// In front of the library's own, which no ordinary disk makes fail.
extern "C" int fclose(std::FILE* file) {
  static const auto close = reinterpret_cast<int (*)(std::FILE*)>(dlsym(RTLD_NEXT, "fclose"));
  const int result = close(file);
  if (!closingFails) return result;
  errno = EIO;
  return EOF;
}

namespace {

// To root, who may open anything, it is forbidden by being someone else meanwhile.
void Forbid(const fs::path& file, bool forbidden) {
  EXPECT_EQ(seteuid(getuid()), 0);
  fs::permissions(file, forbidden ? fs::perms::none : fs::perms::owner_all);
  EXPECT_EQ(seteuid(forbidden && getuid() == 0 ? 65534 : getuid()), 0);
}

TEST_F(UnixTest, FailedWriteKeepsTheFlightsUntilItSucceeds) {
  EXPECT_EQ(MassageOf(Poked(sound, 13, 1)), Messages{});  // short enough to be cut at every length
  ::Write(root / "campaign/report.txt", "of yesterday");
  std::signal(SIGXFSZ, SIG_IGN);
  const Bytes plan = Composed();
  const fakes::Form massaged = fakes::form;
  const auto meetsAll = [&](void (*event)(RunState&), const std::string& name, const Bytes& bytes,
                            const std::string& buttons, const std::string& kept) {
    const std::string place = " ../campaign/" + name,
                      unopened = place + " can't be opened for writing: ", untouched = "; nothing was written",
                      cut = " of " + std::to_string(bytes.size()) + " bytes could be written: ",
                      incomplete = "; it is incomplete now";
    const fs::path folder = root / "campaign", file = folder / name, aside = root / "aside";
    Bytes old = Read(file);
    const auto fails = [&](const std::string& told, const Bytes& left, const auto& trouble) {
      fakes::form = massaged;
      trouble(true);
      const Messages said = Press(event, place.substr(1));
      trouble(false);
      EXPECT_EQ(said, Messages{"Error # " + told + kept});
      EXPECT_EQ(fakes::form.buttons + fakes::form.hint, massaged.buttons + massaged.hint);
      EXPECT_TRUE(Composed() == plan && Read(file) == left) << told;
    };
    const auto succeeds = [&] {
      EXPECT_EQ(Press(event, place.substr(1)), Messages{});
      EXPECT_EQ(fakes::form.buttons, buttons);
      EXPECT_TRUE(Composed() == plan && Read(file) == bytes);
      old = bytes;
    };
    const auto inPlaceOf = [&](const fs::path& path, const std::string& told, const auto& put) {
      fails(told, old, [&](bool begins) {
        begins ? fs::rename(path, aside) : void(fs::remove(path));
        begins ? put(path) : fs::rename(aside, path);
      });
      succeeds();
    };
    inPlaceOf(folder, "53" + unopened + "No such file or directory" + untouched, [](const fs::path&) {});
    inPlaceOf(folder, "53" + unopened + "Not a directory" + untouched, [](const fs::path& path) { ::Write(path, ""); });
    inPlaceOf(file, "75" + unopened + "Is a directory" + untouched,
              [](const fs::path& path) { fs::create_directory(path); });
    inPlaceOf(file, "61" + place + ": only 0" + cut + "No space left on device" + incomplete,
              [](const fs::path& path) { fs::create_symlink("/dev/full", path); });
    fails("70" + unopened + "Permission denied" + untouched, old, [&](bool begins) { Forbid(file, begins); });
    succeeds();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
      fs::remove(file);  // faster than to empty it
      fails("61" + place + ": only " + std::to_string(size) + cut + "File too large" + incomplete,
            bytes.substr(0, size), [&](bool begins) {
              const rlimit limit{begins ? size : RLIM_INFINITY, RLIM_INFINITY};
              setrlimit(RLIMIT_FSIZE, &limit);
            });
    }
    succeeds();
    fails("75" + place + " can't be closed: Input/output error; it may be incomplete now", bytes,
          [](bool begins) { closingFails = begins; });
    succeeds();
  };
  meetsAll(WriteB_Click, "campgn01.mis", plan, "--R-E",
           "; the massaged flights are kept: mend the cause and press Write again");
  meetsAll(ReportB_Click, "report.txt", ComposeReport(*state), massaged.buttons, "");
}

TEST_F(UnixTest, FilesThatCantBeRead) {
  Load();
  const std::string place = "../campaign/campgn01.mis", unchanged = "; the mission file was not changed";
  EXPECT_EQ(Open(".."), Messages{"Error # 75 .. can't be opened: Is a directory" + unchanged});
  EXPECT_EQ(Open("/dev/null"), Messages{"Error # 75 /dev/null can't be opened: Operation not supported" + unchanged});
  Forbid(mis, true);
  EXPECT_EQ(Open(place), Messages{"Error # 70 " + place + " can't be opened: Permission denied" + unchanged});
  Forbid(mis, false);
  fs::resize_file(mis, (256 << 20) + 1);
  EXPECT_EQ(Open(place), Messages{"Error # 75 " + place + " is larger than 256 MiB" + unchanged});
}

TEST_F(UnixTest, PathsOfAnotherSystem) {
  const auto opens = [](const std::string& path) { return OpenForReading(path) != nullptr; };
  EXPECT_TRUE(opens("..\\CAMPAIGN\\Campgn01.MIS"));
  EXPECT_TRUE(opens((root / "Campaign/campgn01.DAT").string()));
  EXPECT_FALSE(opens("..\\campaign\\campgn03.mis"));
  EXPECT_FALSE(opens(Bytes("../campaign/campgn01.mis\0x", 26)));
  ::Write("odd\\name", "as it stands");
  EXPECT_TRUE(opens("odd\\name"));
  fs::create_directory(root / "Campaign");  // written so, it goes first
  EXPECT_FALSE(opens("../Campaign/campgn01.mis"));
  OpenForWriting("..\\CAMPAIGN\\Report.TXT").reset();
  EXPECT_TRUE(fs::exists(root / "Campaign/Report.TXT"));
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
  EXPECT_TRUE(fs::exists("a \"b c\" ?.txt") && fs::exists("../campaign/Report"));
  EXPECT_FALSE(fs::exists(root / ".config"));
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
