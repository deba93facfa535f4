// Files that can't be used, one fault a case: whatever is refused leaves the state and the user's files as they were,
// and the sound file is taken the next time.
#include <algorithm>
#include <cstring>
#include <map>
#include <optional>
#include <regex>
#include <sstream>

#include "campaign_folder.h"

using namespace velmoran;

namespace {

class FaultsTest : public CampaignFolder {
 protected:
  // Spoils a file, or takes it away, and does the event that meets it. The message is all that is told; "none" stands
  // for a file that is taken, for all its oddity.
  void Meets(const std::string& event, const std::filesystem::path& path, const std::optional<Bytes>& spoiled,
             const std::string& message) {
    const Bytes intact = files.at(path);
    files[path] = spoiled.value_or("");
    spoiled ? ::Write(path, *spoiled) : void(std::filesystem::remove(path));
    const bool taken = message == "none";
    const Messages loaded = Load();
    if (event == "load") {
      EXPECT_EQ(loaded, taken ? Messages{} : (Messages{message, "failed"}));
    } else {
      if (event == "massage") Open();
      const std::string before = Known(path == dat);
      EXPECT_EQ(event == "open" ? Open() : Press(MassageB_Click),
                taken ? Messages{} : Messages{message + "; the mission file was not changed"});
      EXPECT_EQ(Known(path == dat) == before, !taken);
    }
    for (const auto& [file, bytes] : files) EXPECT_TRUE(Read(file) == bytes) << file;

    ::Write(path, files[path] = intact);
    Messages said;
    if (event == "load" || path == roster || taken) said = Load();
    if (event != "load" && said.empty()) said = Open();
    EXPECT_TRUE(event == "load" || Composed() == sound);
    if (event == "massage" && said.empty()) said = Press(MassageB_Click);
    EXPECT_EQ(said, Messages{});
  }

  std::map<std::filesystem::path, Bytes> files{
      {ini, Read(ini)}, {txt, Read(txt)}, {roster, Read(roster)}, {mis, sound}, {dat, Read(dat)}};

 private:
  // What the user sees and what would be written; of the campaign file, whose values Open takes before it looks at the
  // mission file, where that is the one at fault.
  std::string Known(bool withCampaign) const {
    return fakes::form.buttons + fakes::form.hint + fakes::form.target + Composed() +
           (withCampaign ? fakes::Join(std::vector<Long>{state->CampaignDate, state->WarPeriod, state->ShiftAxis,
                                                         state->TypeOddsGate})
                         : "");
  }
};

// The bytes with a fault as data/faults.txt tells it.
Bytes Spoiled(const Bytes& intact, const std::string& fault) {
  if (const std::size_t arrow = fault.find(" -> "); arrow != std::string::npos) {
    const auto lines = [](const std::string& text) { return std::regex_replace(text, std::regex(R"(\\n)"), "\n"); };
    return Replaced(intact, lines(fault.substr(0, arrow)), lines(fault.substr(arrow + 4)));
  }
  Bytes spoiled = intact;
  std::istringstream values(std::regex_replace(fault, std::regex("size"), ""));
  std::int64_t size = 0, value = 0;
  if (fault.starts_with("size") && values >> size) {
    spoiled.resize(static_cast<std::size_t>(size) + (size < 0 ? intact.size() : 0));
  }
  for (std::size_t offset = 0, width = 0; values >> offset >> width >> value;) {
    spoiled = Poked(spoiled, offset, value, width);
  }
  return spoiled;
}

TEST_F(FaultsTest, OneAtATime) {
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
    Meets(column[1], path, column[3] == "remove" ? std::nullopt : std::optional(Spoiled(files[path], column[3])),
          std::regex_replace(column[4].str(), std::regex("ROOT/"), (root / "").string()));
  }
  EXPECT_EQ(met, 41);
}

TEST_F(FaultsTest, CutShort) {
  // What is taken at once from a file, and what a message calls it.
  struct Step {
    std::string part;
    std::size_t from, end;
  };
  std::vector<Step> steps;
  const auto take = [&](const std::string& part, std::size_t from, std::size_t width) {
    steps.push_back({part, from, from + width});
  };
  const auto value = [](const Bytes& bytes, std::size_t at) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &bytes.at(at), 4);
    return std::size_t{bits};
  };
  // At each of the first bytes, and in front of each step.
  const auto cut = [&](const std::string& event, const std::filesystem::path& path, std::size_t first) {
    for (std::size_t size = 0; size < steps.back().end; ++size) {
      const Step& due = *std::ranges::find_if(steps, [size](const Step& step) { return step.end > size; });
      if (size >= first && size != due.from) continue;
      Meets(event, path, files[path].substr(0, size),
            "Error # 62 " + path.filename().string() + ", " + due.part + " at offset " + std::to_string(due.from) +
                ": the file ends " + std::to_string(due.end - size) + " bytes too early");
    }
    steps.clear();
  };

  take("header", 0, 17);
  for (std::size_t row = 0; row < value(sound, 13); ++row) {
    const std::size_t at = steps.back().end;
    take("record " + std::to_string(row), at, 216);
    take("record " + std::to_string(row), at + 216,
         148 + 46 * value(sound, at + 192) + (value(sound, at + 204) ? 4 : 0));
  }
  cut("open", mis, steps[3].from);

  for (std::size_t row = 0, at = 0; row < 190; ++row, at = steps.back().end) {
    const std::string record = "record " + std::to_string(row);
    take(record, at, 60);
    take(record, at + 60, 16 * value(files[roster], at + 56));
    take(record, steps.back().end, 4);
    take(record, steps.back().end, 28 * value(files[roster], steps.back().from));
  }
  cut("load", roster, 0);
}

TEST_F(FaultsTest, EveryNumberOfTheSetup) {
  std::ifstream items(VELMORAN_TEST_DATA "/items.txt");
  const std::regex textOrNumber(R"("[^"]*"|([-.0-9]+))");
  const std::string huge = "1" + std::string(309, '0');
  for (const std::filesystem::path& path : {ini, txt}) {
    const Bytes text = files[path];
    for (std::sregex_iterator found(text.begin(), text.end(), textOrNumber), end; found != end; ++found) {
      if (!(*found)[1].matched) continue;
      std::string item;
      std::getline(items, item);
      const auto line = 1 + std::count(text.begin(), (*found)[1].first, '\n');
      const std::string place = " " + path.filename().string() + " line " + std::to_string(line) + ": " + item + ": \"";
      const auto with = [&](const std::string& other) {
        return Bytes(text).replace(static_cast<std::size_t>(found->position()), found->str().size(), other);
      };
      Meets("load", path, with("1x"), "Error # 13" + place + "1x\" is no number");
      Meets("load", path, with(huge), "Error # 6" + place + huge.substr(0, 40) + "\" is out of range");
    }
  }
  EXPECT_EQ(items.peek(), std::ifstream::traits_type::eof());
}

}  // namespace
