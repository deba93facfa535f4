// The real window, pressed by its driver: the console's words and bytes, and what only a window has.
#include "campaign_folder.h"

namespace {

using Path = std::filesystem::path;

using WindowTest = CampaignFolder;

TEST_F(WindowTest, SaysAndWritesWhatTheConsoleDoes) {
  const Bytes typed =
      "massage\nopen\n\nopen\n" + Native(root / "nothing.mis") + "\nopen\n" + Native(dat) + "\nopen\n" + Native(mis) +
      "\nreport\nbefore.txt\nmassage\nreport\n\nreport\nafter.txt\nwrite\nopen\nreport\nafter.txt\nexit\n";
  const auto files = [&] {
    Messages all;
    for (const Path& file : {mis, Path("before.txt"), Path("after.txt"), Path("MissionReport.txt")}) {
      all.push_back(Read(file));
      EXPECT_FALSE(all.back().empty()) << file;
    }
    return all;
  };
  const Bytes console = Console(typed);
  EXPECT_EQ(Lines(console, "message: ").size(), 2U);
  const Messages expected = files();
  EXPECT_TRUE(expected[0] != intact && expected[1] != expected[2]);
  Write(mis, intact);
  for (const char* report : {"before.txt", "after.txt", "MissionReport.txt"}) std::filesystem::remove(report);
  EXPECT_EQ(Window(typed), console);
  EXPECT_TRUE(files() == expected);
}

TEST_F(WindowTest, ClosingItEndsTheProgramWithNothingSaved) {
  EXPECT_EQ(Window("open\n" + Native(mis) + "\nmassage\n"), Console("open\n" + Native(mis) + "\nmassage\n"));
  EXPECT_EQ(Read(mis), intact);
}

TEST_F(WindowTest, IsNeverShownWhereTheSetupFails) {
  std::filesystem::remove(txt);
  EXPECT_EQ(Window("look\n"), Console(""));
}

TEST_F(WindowTest, KeysAloneDoAllAndNoTextIsCut) {
  const Path deep = root / "a folder whose name is long & odd" / "and another one whose name is no shorter than that";
  std::filesystem::create_directories(deep.parent_path());
  std::filesystem::copy(root / "campaign", deep, std::filesystem::copy_options::recursive);
  const Bytes window =
      Window("look\ntab\ntab\ntab\nspace\n*.dat\n" + Native(deep / "campgn01.mis") +
             "\nlook\nenter\ntab\nlook\nenter\nlook\ntab\ntab\nspace\n" + Native(deep) + "\n\ntab\ntab\nenter\n");
  EXPECT_TRUE(window.ends_with("status 0"));
  EXPECT_TRUE(Read(deep / "campgn01.mis") != intact);
  EXPECT_EQ(Lines(window, "target: ").back(), Native(deep / "campgn01.mis"));
  Messages asked = Lines(window, "ask: ");
  ASSERT_EQ(asked.size(), 4U);
  asked.back().resize(15);  // in a folder that was typed, the system's own dialogs empty the field
  EXPECT_EQ(asked, (Messages{"Open Mission File [*.mis]", "Open Mission File [*.dat]",
                             "Generate Report [MissionReport.txt]", "Generate Report"}));
  EXPECT_EQ(Lines(window, "focus: "), (Messages{"HintT", "ExitB", "OpenB",  // no others take it at first
                                                "WriteB",                   // from ReportB, after Massage File
                                                "ExitB", "ReportB",         // from HintT, after Write
                                                "HintT", "ExitB"}));
  const Messages looks = Lines(window, "look: ");
  ASSERT_EQ(looks.size(), 4U);
  EXPECT_EQ(looks[0] + "\n", Read(VELMORAN_TEST_DATA "/form.txt"));
  for (std::size_t i = 1; i < looks.size(); ++i) {  // the same except target and hint, so none reports a flaw
    const std::regex changing("ltarget .* \\| Line2|HintT .* \\| Line6");
    EXPECT_EQ(std::regex_replace(looks[i], changing, ""), std::regex_replace(looks[0], changing, ""));
    EXPECT_NE(looks[i].find(" " + Native(deep / "campgn01.mis") + " | Line2"), Bytes::npos) << looks[i];
    EXPECT_NE(looks[i].find("massaging | Line6"), Bytes::npos) << looks[i];
  }
}

}  // namespace
