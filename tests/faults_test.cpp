// Files that can't be used: one fault for each line of data/faults.txt, in an otherwise intact sample. What is refused
// leaves the state and the user's files unchanged, and the intact file is accepted afterwards.
#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>

#include "campaign_folder.h"

using namespace velmoran;

namespace {

struct Fault {
  std::string line, event, file, change, message;
};
void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.line; }

std::vector<Fault> Faults() {
  std::vector<Fault> faults;
  std::ifstream lines(VELMORAN_TEST_DATA "/faults.txt");
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('#')) continue;
    std::vector<std::string> columns;
    for (std::size_t at = 0, end; at <= line.size(); at = end + 3) {
      end = std::min(line.find(" | ", at), line.size());
      columns.push_back(line.substr(at, end - at));
    }
    faults.push_back({line, columns.at(0), columns.at(1), columns.at(2), columns.at(3)});
  }
  return faults;
}

Bytes WithLineEnds(Bytes text) {
  for (std::size_t at = 0; (at = text.find("\\n")) != Bytes::npos;) text.replace(at, 2, "\n");
  return text;
}

Bytes Changed(Bytes bytes, const std::string& change) {
  if (const std::size_t arrow = change.find(" -> "); arrow != Bytes::npos) {
    return Replaced(bytes, WithLineEnds(change.substr(0, arrow)), WithLineEnds(change.substr(arrow + 4)));
  }
  std::istringstream numbers(change.starts_with("size ") ? change.substr(5) : change);
  std::int64_t size = 0, value = 0;
  if (change.starts_with("size ") && numbers >> size) {
    bytes.resize(static_cast<std::size_t>(size) + (size < 0 ? bytes.size() : 0));
  }
  for (std::size_t offset = 0, width = 0; numbers >> offset >> width >> value;) {
    bytes = Poked(bytes, offset, value, width);
  }
  return bytes;
}

const std::string Item =
    "Correct this item; if it is right, there is an item too many or too few further up (a decimal comma makes two "
    "items).";
const std::string Folder =
    "he tool's folder must have a name of eight characters and be beside the simulation's data folder.";
const std::string Damaged = "If it is the right file, it is damaged: restore your copy of the campaign folder.";

// The advice of a message, by file or event: if the file is invalid, and if it is missing.
const std::map<std::string, std::pair<std::string, std::string>> Advice{
    {"ini", {Item, "Start Velmoran from its own folder, with Velmoran.ini in it."}},
    {"txt", {Item, "Copy Velmoran.txt there. If that is the wrong folder: t" + Folder}},
    {"roster", {"Replace it with an intact copy.", "It is part of the simulation. T" + Folder}},
    {"mis", {Damaged, "Choose the mission file of your campaign, campgn??.mis."}},
    {"dat", {Damaged, "The campaign file must be beside the mission file, with the extension dat."}},
    {"massage", {"Velmoran can't massage this plan: press Exit, and fly it as it is.", ""}}};

class FaultsTest : public CampaignFolder, public testing::WithParamInterface<Fault> {
 protected:
  // What the user sees, and what Write would write.
  std::string Visible() const { return fakes::form.buttons + fakes::form.hint + fakes::form.target + Composed(); }
  std::string Campaign() const {
    return fakes::Join(std::vector<Long>{state->CampaignDate, state->WarPeriod, state->ShiftAxis, state->TypeOddsGate});
  }
  // The message of the line, with the whole path instead of the file name, and with its advice. None for "none".
  Messages Expected(const std::filesystem::path& path) const {
    const auto& [line, event, file, change, message] = GetParam();
    if (message == "none") return {};
    if (!message.starts_with("Error")) return {message, "failed"};  // a massage that has begun ends
    const std::filesystem::path named = event == "massage" ? mis : path;
    const std::string whole = Replaced(message, named.filename().string(), Native(named)) + ". ";
    const auto& [advice, adviceIfMissing] = Advice.at(event == "massage" ? event : file);
    const std::string unchanged = event == "load" ? "" : "No file was changed. ";
    const Messages shown{whole + unchanged + (change == "remove" ? adviceIfMissing : advice)};
    return event == "load" ? Messages{shown[0], "failed"} : shown;
  }
};

TEST_P(FaultsTest, IsReported) {
  const auto& [line, event, file, change, message] = GetParam();
  const std::map<std::string, std::filesystem::path> paths{
      {"ini", ini}, {"txt", txt}, {"roster", roster}, {"mis", mis}, {"dat", dat}};
  const std::filesystem::path path = paths.at(file);
  const Bytes original = Read(path), faulty = change == "remove" ? "" : Changed(original, change);
  change == "remove" ? void(std::filesystem::remove(path)) : ::Write(path, faulty);

  if (event == "load") {
    EXPECT_EQ(Load(), Expected(path));
  } else {
    ASSERT_EQ(Load(), Messages{});
    if (event == "massage") {
      EXPECT_EQ(Open(), Messages{});
    }
    const std::string visible = Visible(), campaign = Campaign();
    EXPECT_EQ(event == "open" ? Open() : Press(MassageB_Click), Expected(path));
    if (message.starts_with("Error")) {
      EXPECT_TRUE(Visible() == visible);
      EXPECT_TRUE(path != dat || Campaign() == campaign);
    }
  }
  EXPECT_EQ(Read(path), faulty);
  if (event == "open") {
    ::Write(path, original);
    EXPECT_EQ(Open(), Messages{});
    EXPECT_TRUE(Composed() == intact);
  }
}

std::string Name(const testing::TestParamInfo<Fault>& fault) {
  std::string name = std::to_string(fault.index) + "_" + fault.param.line.substr(0, fault.param.line.rfind(" | "));
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name.substr(0, 60);
}
INSTANTIATE_TEST_SUITE_P(Line, FaultsTest, testing::ValuesIn(Faults()), Name);

}  // namespace
