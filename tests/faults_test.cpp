// Files that can't be used, one fault a case: whatever is refused leaves the state and the user's files as they were,
// and the sound file is taken the next time.
#include <algorithm>
#include <map>
#include <optional>
#include <regex>
#include <sstream>
#include <utility>

#include "campaign_folder.h"

using namespace velmoran;

namespace {

class FaultsTest : public CampaignFolder {
 protected:
  // Spoils a file, or takes it away, and does the event that meets it, which tells the message of data/faults.txt.
  void Meets(const std::string& event, const std::filesystem::path& path, const std::optional<Bytes>& spoiled,
             const std::string& message) {
    const Bytes intact = files.at(path);
    files[path] = spoiled.value_or("");
    spoiled ? ::Write(path, *spoiled) : void(std::filesystem::remove(path));
    const bool refused = message.starts_with("Error"), ends = event == "load" || !refused;
    Messages told;
    if (refused) told = {Whole(event, path, message)};
    if (!refused && message != "none") told = {message};
    if (ends && message != "none") told.push_back("failed");
    Messages said = Load();
    if (event != "load") {
      EXPECT_EQ(said, Messages{});
      if (event == "massage") Open();
      const std::string before = Known(path == dat);
      said = event == "open" ? Open() : Press(MassageB_Click);
      EXPECT_EQ(Known(path == dat) == before, refused);
    }
    EXPECT_EQ(said, told);
    for (const auto& [file, bytes] : files) EXPECT_TRUE(Read(file) == bytes) << file;

    ::Write(path, files[path] = intact);
    said = event == "load" || path == roster || !refused ? Load() : Messages{};
    if (event != "load" && said.empty()) said = Open();
    EXPECT_TRUE(event == "load" || Composed() == sound);
    if (event == "massage" && said.empty()) said = Press(MassageB_Click);
    EXPECT_EQ(said, Messages{});
  }

  std::map<std::filesystem::path, Bytes> files{
      {ini, Read(ini)}, {txt, Read(txt)}, {roster, Read(roster)}, {mis, sound}, {dat, Read(dat)}};

 private:
  // The message with the whole path in place of the file's name, and with what the user is told to do.
  std::string Whole(const std::string& event, const std::filesystem::path& path, std::string message) const {
    const bool opens = message.find("can't be opened") != Bytes::npos;
    const std::filesystem::path shown = event == "massage" ? mis : path;
    message = Replaced(message, shown.filename().string(), std::filesystem::path(shown).make_preferred().string());
    const std::string folder =
        "the tool's folder must have a name of eight characters and be beside the simulation's data folder.";
    if (event == "massage") {
      return message + ". No file was changed. Velmoran can't massage this plan: press Exit, and fly it as it is.";
    }
    if (path == mis || path == dat) {
      return message + ". No file was changed. " +
             (!opens        ? "If it is the right file, it is damaged: restore your copy of the campaign folder."
              : path == mis ? "Choose the mission file of your campaign, campgn??.mis."
                            : "The campaign file must be beside the mission file, with the extension dat.");
    }
    if (path == roster) {
      return message +
             (opens ? ". It is part of the simulation. T" + folder.substr(1) : ". Replace it with an intact copy.");
    }
    if (!opens) {
      return message +
             ". Correct this item; if it is right, there is an item too many or too few further up (a decimal comma "
             "makes "
             "two items).";
    }
    return message + (path == ini ? ". Start Velmoran from its own folder, with Velmoran.ini in it."
                                  : ". Copy Velmoran.txt there. If that is the wrong folder: " + folder);
  }

  // What the user sees and what would be written; and what the campaign file says, which Open takes over before it
  // looks at the mission file.
  std::string Known(bool withCampaign) const {
    const std::vector<Long> campaign{state->CampaignDate, state->WarPeriod, state->ShiftAxis, state->TypeOddsGate};
    return fakes::form.buttons + fakes::form.hint + fakes::form.target + Composed() +
           (withCampaign ? fakes::Join(campaign) : "");
  }
};

// The bytes with a fault as data/faults.txt tells it.
Bytes Spoiled(const Bytes& intact, const std::string& fault) {
  if (const std::size_t arrow = fault.find(" -> "); arrow != std::string::npos) {
    const auto lines = [](const std::string& text) { return std::regex_replace(text, std::regex(R"(\\n)"), "\n"); };
    return Replaced(intact, lines(fault.substr(0, arrow)), lines(fault.substr(arrow + 4)));
  }
  Bytes spoiled = intact;
  const bool sized = fault.starts_with("size ");
  std::istringstream values(sized ? fault.substr(5) : fault);
  std::int64_t size = 0, value = 0;
  if (sized && values >> size) spoiled.resize(static_cast<std::size_t>(size) + (size < 0 ? intact.size() : 0));
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
          column[4]);
  }
  EXPECT_EQ(met, 144);
}

TEST_F(FaultsTest, CutShort) {
  std::size_t end = 0;
  // Steps over a part of a file, which is then cut within it, at so many bytes; gives the offset of the part.
  const auto step = [&](const std::filesystem::path& path, const std::string& part, std::size_t width,
                        std::size_t cuts) {
    const std::size_t from = std::exchange(end, end + width);
    for (std::size_t size = from; size < from + cuts; ++size) {
      Meets(path == mis ? "open" : "load", path, files[path].substr(0, size),
            "Error # 62 " + path.filename().string() + ", " + part + " at offset " + std::to_string(from) +
                ": the file ends " + std::to_string(end - size) + (end - size == 1 ? " byte" : " bytes") +
                " too early");
    }
    return from;
  };
  const auto number = [](const Bytes& bytes, std::size_t at) { return std::size_t{static_cast<Byte>(bytes.at(at))}; };
  step(mis, "header", 17, 17);
  for (std::size_t row = 0; row < number(sound, 13); ++row) {
    const std::string record = "record " + std::to_string(row);
    const std::size_t at = step(mis, record, 216, row == 0 ? 216 : 1), link = number(sound, at + 204) == 0 ? 0 : 4,
                      body = 46 * number(sound, at + 192) + link + 148;
    step(mis, record, body, row == 0 ? body : 1);
  }
  const Bytes squadrons = files[roster];
  end = 0;
  for (int row = 0; row < 190; ++row) {
    const std::string record = "record " + std::to_string(row);
    const std::size_t at = step(roster, record, 60, 1);
    step(roster, record, 16 * number(squadrons, at + 56), 0);
    step(roster, record, 28 * number(squadrons, step(roster, record, 4, 0)), 0);
  }
}

TEST_F(FaultsTest, EveryNumberOfTheSetup) {
  std::ifstream items(VELMORAN_TEST_DATA "/items.txt");  // what messages call the numbers, in order
  const std::regex textOrNumber(R"("[^"]*"|([-.0-9]+))");
  const std::string huge = "1" + std::string(309, '0');
  for (const std::filesystem::path& path : {ini, txt}) {
    const Bytes text = files[path];
    for (std::sregex_iterator found(text.begin(), text.end(), textOrNumber), end; found != end; ++found) {
      const auto number = (*found)[1];
      if (!number.matched) continue;
      std::string item;
      std::getline(items, item);
      const auto line = 1 + std::count(text.begin(), number.first, '\n');
      const std::string place = " " + path.filename().string() + " line " + std::to_string(line) + ": " + item + ": \"";
      const auto with = [&](const Bytes& other) {
        return Bytes(text.begin(), number.first) + other + Bytes(number.second, text.end());
      };
      Meets("load", path, with("1x"), "Error # 13" + place + "1x\" is not a number");
      Meets("load", path, with(huge), "Error # 6" + place + huge.substr(0, 40) + "\" is out of range");
    }
  }
  EXPECT_EQ(items.peek(), EOF);
}

}  // namespace
