// Files that can't be used: one fault for each line of data/faults.txt, in an otherwise intact sample. What is refused
// leaves the state and the user's files unchanged, and the intact file is accepted afterwards.
#include <algorithm>
#include <cctype>
#include <map>

#include "campaign_folder.h"

using namespace velmoran;

namespace {

struct Fault {
  std::string line, event, file, change, message;
};
void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.line; }

std::vector<Fault> Faults() {
  std::vector<Fault> faults;
  for (const auto& row : DataRows("faults.txt")) {
    faults.push_back({row.at(0) + " " + row.at(1) + " " + row.at(2), row[0], row[1], row[2], row.at(3)});
  }
  return faults;
}

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
    std::string advice;
    for (const auto& row : DataRows("advice.txt")) {
      if (row.at(0) == (event == "massage" ? event : file)) advice = row.at(change == "remove" ? 2 : 1);
    }
    const std::string unchanged = event == "load" ? "" : "No file was changed. ";
    const Messages shown{whole + unchanged + advice};
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
    EXPECT_EQ(event == "massage" ? Open() : Messages{}, Messages{});
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
  std::string name = std::to_string(fault.index) + "_" + fault.param.line;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name.substr(0, 60);
}
INSTANTIATE_TEST_SUITE_P(Line, FaultsTest, testing::ValuesIn(Faults()), Name);

}  // namespace
