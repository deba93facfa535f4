#include "files/setup.h"

#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "files/disk.h"
#include "files/path.h"
#include "state/failure.h"

namespace velmoran {

namespace {

// The item that is read next, for the description of a failure: "MissionDefs row 3 MaxAlt", "Periods row 0 SizeFactor
// 2", "heading".
struct Due {
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

// Takes one item after another from the text of a setup file.
class ItemReader {
 public:
  explicit ItemReader(const InputFile& file) : bytes_(file.ReadAll()), file_(Printable(file.Path())) {
    text_ = {reinterpret_cast<const char*>(bytes_.data()), bytes_.size()};
    if (text_.starts_with("\xEF\xBB\xBF")) text_.remove_prefix(3);
  }

  std::string_view Text(const Due& due) {
    while (!text_.empty() && IsBlank(text_.front())) text_.remove_prefix(1);
    line_ = nextLine_;
    if (text_.empty()) throw At(due, FailureNumber::PastEndOfFile, "the file ends before this item");
    std::string_view item;
    if (text_.front() == '"') {
      text_.remove_prefix(1);
      item = Until("\"\r\n");
      if (!text_.empty() && text_.front() == '"') text_.remove_prefix(1);
      Until(",\r\n");
    } else {
      item = Until(",\r\n");
    }
    StepOverEnd();
    return item;
  }

  void Skip(const Due& due) { Text(due); }

  double Double(const Due& due) { return NumberIn(Text(due), due); }

  Integer Whole(const Due& due) {
    const std::string_view item = Text(due);
    const Long whole = RoundEven(NumberIn(item, due));
    if (whole != Narrow(whole)) {
      throw At(due, FailureNumber::Overflow, Shown(item) + " is outside -32768 to 32767");
    }
    return Narrow(whole);
  }

  Integer WholeAtMost(Long limit, const Due& due) {
    const Integer whole = Whole(due);
    if (whole > limit) {
      throw At(due, FailureNumber::OutsideTable, std::to_string(whole) + " is more than " + std::to_string(limit));
    }
    return whole;
  }

 private:
  double NumberIn(std::string_view item, const Due& due) const {
    std::string_view digits = item;
    while (!digits.empty() && IsBlank(digits.front())) digits.remove_prefix(1);
    while (!digits.empty() && IsBlank(digits.back())) digits.remove_suffix(1);
    if (digits.empty()) return 0;
    if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.remove_prefix(1);

    double number = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, std::chars_format::fixed);
    if (stop != end || error == std::errc::invalid_argument || !std::isfinite(number)) {
      throw At(due, FailureNumber::NoNumber, Shown(item) + " is not a number");
    }
    if (error == std::errc::result_out_of_range) {
      const bool tiny = digits.find('.') < digits.find_first_of("123456789");
      if (!tiny) throw At(due, FailureNumber::Overflow, Shown(item) + " is out of range");
    }
    return number;
  }

  static bool IsBlank(char letter) { return letter == ' ' || letter == '\t'; }

  std::string_view Until(std::string_view ends) {
    const std::string_view taken = text_.substr(0, text_.find_first_of(ends));
    text_.remove_prefix(taken.size());
    return taken;
  }

  void StepOverEnd() {
    if (text_.empty()) return;
    if (text_.front() != ',') ++nextLine_;
    text_.remove_prefix(text_.starts_with("\r\n") ? 2 : 1);
  }

  // The item as a message can show it: in quotes, cut to a length that fits a line, printable characters only.
  static std::string Shown(std::string_view item) {
    std::string shown = "\"";
    for (const char letter : item.substr(0, 40)) shown += letter >= ' ' && letter <= '~' ? letter : '?';
    return shown + "\"";
  }

  Failure At(const Due& due, FailureNumber number, const std::string& reason) const {
    return {number, file_ + " line " + std::to_string(line_) + ": " + due.Text() + ": " + reason,
            "Correct this item; if it is right, there is an item too many or too few further up (a decimal comma makes "
            "two items)."};
  }

  std::vector<Byte> bytes_;
  std::string file_;
  std::string_view text_;  // what is left of bytes_
  int line_ = 1;           // of the item read last, from 1
  int nextLine_ = 1;
};

void ReadOddsAndLimits(RunState& run) {
  ItemReader in(InputFile("Velmoran.ini", "Start Velmoran from its own folder, with Velmoran.ini in it."));
  const auto skipHeadings = [&in] {
    in.Skip({"heading"});
    in.Skip({"heading"});
  };

  in.Skip({"heading"});
  for (Long row = 0; row < PeriodsFilled; ++row) {
    PeriodRec& period = run.Periods[row];
    in.Skip({"Periods", row, "label"});
    for (Long nation = 0; nation < Nations - 1; ++nation) {
      period.SizeFactor[nation] = in.Double({"Periods", row, "SizeFactor", nation});
    }
    period.RemoveOdds = in.Double({"Periods", row, "RemoveOdds"});
    for (Long kind = 0; kind < GroupKinds - 1; ++kind) {
      period.GroupOdds[kind] = in.Double({"Periods", row, "GroupOdds", kind});
    }
  }

  skipHeadings();
  for (Long row = 0; row < ClassOddsRows; ++row) {
    ClassOddsRec& odds = run.ClassOdds[row];
    in.Skip({"ClassOdds", row, "label"});
    odds.Recon = in.Double({"ClassOdds", row, "first value"});
    odds.Spotting = in.Double({"ClassOdds", row, "second value"});
    odds.Unused = in.Double({"ClassOdds", row, "third value"});
  }

  skipHeadings();
  for (Long row = 0; row < TypesFilled; ++row) {
    MissionDefRec& def = run.MissionDefs[row];
    in.Skip({"MissionDefs", row, "label"});
    def.MinAlt = in.Whole({"MissionDefs", row, "MinAlt"});
    def.MaxAlt = in.Whole({"MissionDefs", row, "MaxAlt"});
    def.MinPlanes = in.Whole({"MissionDefs", row, "MinPlanes"});
    def.MaxPlanes = in.Whole({"MissionDefs", row, "MaxPlanes"});
  }

  skipHeadings();
  for (Long row = 0; row < TypesFilled; ++row) {
    in.Skip({"TypeOdds", row, "label"});
    for (Long nation = 0; nation < Nations - 1; ++nation) {
      run.TypeOdds[row].Odds[nation] = in.Double({"TypeOdds", row, "Odds", nation});
    }
  }

  skipHeadings();
  run.GroupCount = in.WholeAtMost(GroupRows, {"GroupCount"});
  for (Long row = 0; row < run.GroupCount; ++row) {
    SquadGroupRec& group = run.SquadGroups[row];
    group.Count = in.WholeAtMost(GroupSquads, {"SquadGroups", row, "Count"});
    group.Kind = in.Whole({"SquadGroups", row, "Kind"});
    for (Long entry = 0; entry < group.Count; ++entry) {
      group.Squads[entry] = in.Whole({"SquadGroups", row, "Squads", entry});
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
    aircraft.AircraftName = in.Text({"Aircraft", row, "AircraftName"});
    aircraft.AircraftClass = in.Whole({"Aircraft", row, "AircraftClass"});
    aircraft.MinAlt = in.Whole({"Aircraft", row, "MinAlt"});
    aircraft.MaxAlt = in.Whole({"Aircraft", row, "MaxAlt"});
  }
}

}  // namespace

void ReadSetup(RunState& run) {
  ReadOddsAndLimits(run);
  ReadAircraft(run);
}

}  // namespace velmoran
