// The real window, pressed by its driver: the console's words and bytes, and what only a window has.
#include <sstream>

#include "campaign_folder.h"

namespace {

using Path = std::filesystem::path;

// The lines that begin so, without their beginning.
Messages Lines(const Bytes& text, const std::string& beginning) {
  Messages lines;
  std::istringstream all(text);
  for (std::string line; std::getline(all, line);) {
    if (line.starts_with(beginning)) lines.push_back(line.substr(beginning.size()));
  }
  return lines;
}

using WindowTest = CampaignFolder;

TEST_F(WindowTest, SaysAndWritesWhatTheConsoleDoes) {
  const Path refused = root / "campaign/campgn03.mis";
  std::filesystem::copy(dat, root / "campaign/campgn03.dat");
  Write(refused, Poked(intact, 13, 202));
  const Bytes typed =
      "massage\nopen\n\nopen\n" + Native(root / "nothing.mis") + "\nopen\n" + Native(refused) + "\nopen\n" +
      Native(mis) +
      "\nreport\nbefore.txt\nmassage\nreport\n\nreport\nafter.txt\nwrite\nopen\nreport\nafter.txt\nexit\n";
  const auto files = [&] {
    Messages all;
    for (const Path& file : {mis, refused, Path("before.txt"), Path("after.txt"), Path("MissionReport.txt")}) {
      all.push_back(Read(file));
      EXPECT_FALSE(all.back().empty()) << file;
    }
    return all;
  };
  const Output console = Console(typed);
  EXPECT_EQ(Lines(console.text, "message: ").size(), 2U);
  const Messages expected = files();
  EXPECT_TRUE(expected[0] != intact && expected[2] != expected[3]);
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
  const Output window = Window("look\n");
  EXPECT_EQ(window, Console(""));
  EXPECT_EQ(window.status, 1);
}

TEST_F(WindowTest, KeysAloneDoAllAndNoTextIsCut) {
  const Path deep = root / "a folder whose name is long & odd" / "and another one whose name is no shorter than that";
  std::filesystem::create_directories(deep.parent_path());
  std::filesystem::copy(root / "campaign", deep, std::filesystem::copy_options::recursive);
  const Output window =
      Window("look\ntab\ntab\ntab\nspace\n*.dat\n" + Native(deep / "campgn01.mis") +
             "\nlook\nenter\ntab\nlook\nenter\nlook\ntab\ntab\nspace\n" + Native(deep) + "\n\ntab\ntab\nenter\n");
  EXPECT_EQ(window.status, 0);
  EXPECT_TRUE(Read(deep / "campgn01.mis") != intact);
  EXPECT_EQ(Lines(window.text, "target: ").back(), Native(deep / "campgn01.mis"));
  Messages asked = Lines(window.text, "ask: ");
  ASSERT_EQ(asked.size(), 4U);
  asked.back().resize(15);  // in a folder that was typed, the system's own dialogs empty the field
  EXPECT_EQ(asked, (Messages{"Open Mission File [*.mis]", "Open Mission File [*.dat]",
                             "Generate Report [MissionReport.txt]", "Generate Report"}));
  EXPECT_EQ(Lines(window.text, "focus: "), (Messages{"HintT", "ExitB", "OpenB",  // no others take it at first
                                                     "WriteB",                   // from ReportB, after Massage File
                                                     "ExitB", "ReportB",         // from HintT, after Write
                                                     "HintT", "ExitB"}));
  const Messages looks = Lines(window.text, "look: ");
  ASSERT_EQ(looks.size(), 4U);
  EXPECT_EQ(
      looks[0],
      "Mission Form1 | Label1 Velmoran | Label2 Version 8.1 | Line1  | OpenB Open Mission File | ltarget Target:  | "
      "Line2  | MassageB Massage File | Line3  | ReportB Generate Report | Line4  | WriteB Write | Line5  | "
      "HintT Press Open to open a mission (campgn??.mis) file.  When you have opened the mission file the filename "
      "will appear | Line6  | ExitB Exit");
  for (std::size_t i = 1; i < looks.size(); ++i) {  // the same except target and hint, so none reports a flaw
    EXPECT_EQ(std::regex_replace(looks[i], std::regex("ltarget .* \\| Line2|HintT .* \\| Line6"), ""),
              std::regex_replace(looks[0], std::regex("ltarget .* \\| Line2|HintT .* \\| Line6"), ""));
    EXPECT_TRUE(looks[i].find(" " + Native(deep / "campgn01.mis") + " | Line2") != Bytes::npos &&
                looks[i].find("massaging | Line6") != Bytes::npos)
        << looks[i];
  }
}

}  // namespace
