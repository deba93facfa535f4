#include "files/setup.h"

#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "files/disk.h"
#include "files/path.h"
#include "state/failure.h"

namespace velmoran {

namespace {

// In bytes, some 80 times what the templates have. A name of megabytes would be in the report once for each flight.
constexpr std::size_t LargestSetupFile = std::size_t{256} << 10;

// What an item is called in a message: "MissionDefs row 3 MaxAlt", "Periods row 0 SizeFactor 2", "heading".
struct ItemName {
  std::string_view table;
  Long row = -1;
  std::string_view field = {};
  Long entry = -1;

  std::string Text() const {
    std::string text(table);
    if (row >= 0) text += " row " + std::to_string(row);
    if (!field.empty()) text += " " + std::string(field);
    if (entry >= 0) text += " " + std::to_string(entry);
    return text;
  }
};

// Reads the items of a setup file one after another. Every read is given the item's name, for the message if it fails.
class ItemReader {
 public:
  explicit ItemReader(const InputFile& file) : bytes_(file.ReadAll(LargestSetupFile)), file_(Printable(file.Path())) {
    text_ = {reinterpret_cast<const char*>(bytes_.data()), bytes_.size()};
    if (text_.starts_with("\xEF\xBB\xBF")) text_.remove_prefix(3);
  }

  std::string_view ReadText(const ItemName& name) {
    while (!text_.empty() && IsSpaceOrTab(text_.front())) text_.remove_prefix(1);
    line_ = nextLine_;
    if (text_.empty()) throw FailureAt(name, FailureNumber::PastEndOfFile, "the file ends before this item");
    std::string_view item;
    if (text_.front() == '"') {
      text_.remove_prefix(1);
      item = TakeUntil("\"\r\n");
      if (!text_.empty() && text_.front() == '"') text_.remove_prefix(1);
      TakeUntil(",\r\n");
    } else {
      item = TakeUntil(",\r\n");
    }
    SkipSeparator();
    return item;
  }

  void Skip(const ItemName& name) { ReadText(name); }

  double ReadDouble(const ItemName& name) { return ParseNumber(ReadText(name), name); }

  Integer ReadInteger(const ItemName& name) {
    const std::string_view item = ReadText(name);
    const Long rounded = RoundEven(ParseNumber(item, name));
    if (rounded != Narrow(rounded)) {
      throw FailureAt(
          name, FailureNumber::Overflow,
          OutsideText(Quoted(item), std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()));
    }
    return Narrow(rounded);
  }

  Integer ReadIntegerUpTo(Long limit, const ItemName& name) {
    const Integer value = ReadInteger(name);
    if (value > limit) {
      throw FailureAt(name, FailureNumber::OutsideTable,
                      std::to_string(value) + " is more than " + std::to_string(limit));
    }
    return value;
  }

 private:
  double ParseNumber(std::string_view item, const ItemName& name) const {
    std::string_view digits = item;
    while (!digits.empty() && IsSpaceOrTab(digits.front())) digits.remove_prefix(1);
    while (!digits.empty() && IsSpaceOrTab(digits.back())) digits.remove_suffix(1);
    if (digits.empty()) return 0;
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.remove_prefix(1);

    double number = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, std::chars_format::fixed);
    if (stop != end || error == std::errc::invalid_argument || !std::isfinite(number)) {
      throw FailureAt(name, FailureNumber::NotANumber, Quoted(item) + " is not a number");
    }
    if (error == std::errc::result_out_of_range) {  // also for a number too near to 0, which counts as 0
      if (!IsFraction(digits)) throw FailureAt(name, FailureNumber::Overflow, Quoted(item) + " is out of range");
    }
    return number;
  }

  // Whether the number is between -1 and 1: it has a point, and no digit but 0 before it.
  static bool IsFraction(std::string_view digits) {
    const std::size_t point = digits.find('.');
    return point != std::string_view::npos &&
           digits.substr(0, point).find_first_of("123456789") == std::string_view::npos;
  }

  static bool IsSpaceOrTab(char letter) { return letter == ' ' || letter == '\t'; }

  std::string_view TakeUntil(std::string_view ends) {
    const std::string_view taken = text_.substr(0, text_.find_first_of(ends));
    text_.remove_prefix(taken.size());
    return taken;
  }

  // Skips the comma or the line end (CR LF, LF or CR) after an item.
  void SkipSeparator() {
    if (text_.empty()) return;
    if (text_.front() != ',') ++nextLine_;
    text_.remove_prefix(text_.starts_with("\r\n") ? 2 : 1);
  }

  // The item for a message: in quotes, at most 40 characters, with ? for what isn't printable.
  static std::string Quoted(std::string_view item) {
    std::string quoted = "\"";
    for (const char letter : item.substr(0, 40)) quoted += letter >= ' ' && letter <= '~' ? letter : '?';
    return quoted + "\"";
  }

  Failure FailureAt(const ItemName& name, FailureNumber number, const std::string& reason) const {
    return {number, file_ + " line " + std::to_string(line_) + ": " + name.Text() + ": " + reason,
            "Correct this item; if it is right, there is an item too many or too few further up (a decimal comma makes "
            "two items)."};
  }

  std::vector<Byte> bytes_;
  std::string file_;
  std::string_view text_;  // the part of bytes_ not read yet
  int line_ = 1;           // of the item read last, from 1
  int nextLine_ = 1;
};

void ReadPeriods(ItemReader& in, RunState& run) {
  for (Long row = 0; row < PeriodsFilled; ++row) {
    PeriodRec& period = run.Periods[row];
    in.Skip({"Periods", row, "label"});                      // Quirk 21: unused, but its place counts.
    for (Long nation = 0; nation < Nations - 1; ++nation) {  // Quirk 23: none for nation 4.
      period.SizeFactor[nation] = in.ReadDouble({"Periods", row, "SizeFactor", nation});
    }
    period.RemoveOdds = in.ReadDouble({"Periods", row, "RemoveOdds"});
    for (Long kind = 0; kind < GroupKinds - 1; ++kind) {
      period.GroupOdds[kind] = in.ReadDouble({"Periods", row, "GroupOdds", kind});
    }
  }
}

void ReadClassOdds(ItemReader& in, RunState& run) {
  for (Long row = 0; row < ClassOddsRows; ++row) {
    ClassOddsRec& odds = run.ClassOdds[row];
    in.Skip({"ClassOdds", row, "label"});
    odds.Recon = in.ReadDouble({"ClassOdds", row, "first value"});
    odds.Spotting = in.ReadDouble({"ClassOdds", row, "second value"});
    odds.Unused = in.ReadDouble({"ClassOdds", row, "third value"});  // Quirk 22: never used.
  }
}

void ReadMissionDefs(ItemReader& in, RunState& run) {
  for (Long row = 0; row < TypesFilled; ++row) {
    MissionDefRec& def = run.MissionDefs[row];
    in.Skip({"MissionDefs", row, "label"});
    def.MinAlt = in.ReadInteger({"MissionDefs", row, "MinAlt"});
    def.MaxAlt = in.ReadInteger({"MissionDefs", row, "MaxAlt"});
    def.MinPlanes = in.ReadInteger({"MissionDefs", row, "MinPlanes"});
    def.MaxPlanes = in.ReadInteger({"MissionDefs", row, "MaxPlanes"});
  }
}

void ReadTypeOdds(ItemReader& in, RunState& run) {
  for (Long row = 0; row < TypesFilled; ++row) {
    in.Skip({"TypeOdds", row, "label"});
    for (Long nation = 0; nation < Nations - 1; ++nation) {
      run.TypeOdds[row].Odds[nation] = in.ReadDouble({"TypeOdds", row, "Odds", nation});
    }
  }
}

void ReadSquadGroups(ItemReader& in, RunState& run) {
  run.GroupCount = in.ReadIntegerUpTo(GroupRows, {"GroupCount"});
  for (Long row = 0; row < run.GroupCount; ++row) {
    SquadGroupRec& group = run.SquadGroups[row];
    group.Count = in.ReadIntegerUpTo(GroupSquads, {"SquadGroups", row, "Count"});
    group.Kind = in.ReadInteger({"SquadGroups", row, "Kind"});
    for (Long entry = 0; entry < group.Count; ++entry) {
      group.Squads[entry] = in.ReadInteger({"SquadGroups", row, "Squads", entry});
    }
  }
}

void ReadAircraft(RunState& run) {
  ItemReader in(InputFile(run.DataPath + "\\Velmoran.txt",
                          "Copy Velmoran.txt there. If that is the wrong folder: the tool's folder must have a name of "
                          "eight characters and be beside the simulation's data folder."));
  in.Skip({"heading"});
  for (Long row = 0; row < AircraftFilled; ++row) {
    AircraftRec& aircraft = run.Aircraft[row];
    in.Skip({"Aircraft", row, "label"});
    aircraft.AircraftName = in.ReadText({"Aircraft", row, "AircraftName"});
    aircraft.AircraftClass = in.ReadInteger({"Aircraft", row, "AircraftClass"});
    aircraft.MinAlt = in.ReadInteger({"Aircraft", row, "MinAlt"});
    aircraft.MaxAlt = in.ReadInteger({"Aircraft", row, "MaxAlt"});
  }
}

void ReadOddsAndLimits(RunState& run) {
  // Quirk 11: in the current directory.
  ItemReader in(InputFile("Velmoran.ini", "Copy Velmoran.ini there, or start Velmoran from the folder that has it."));
  const auto skipHeadings = [&in](int count) {
    for (int heading = 0; heading < count; ++heading) in.Skip({"heading"});
  };
  skipHeadings(1);
  ReadPeriods(in, run);
  skipHeadings(2);
  ReadClassOdds(in, run);
  skipHeadings(2);
  ReadMissionDefs(in, run);
  skipHeadings(2);
  ReadTypeOdds(in, run);
  skipHeadings(2);
  ReadSquadGroups(in, run);
}

}  // namespace

void ReadSetup(RunState& run) {
  ReadOddsAndLimits(run);
  ReadAircraft(run);
}

}  // namespace velmoran
