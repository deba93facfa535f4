#include "files/roster.h"

#include <span>
#include <vector>

#include "files/bytes.h"
#include "files/disk.h"
#include "files/path.h"

namespace velmoran {

namespace {

// Offsets and widths in a record, in bytes.
constexpr std::size_t NameLetters = 39;
constexpr Long IdAt = 40, NationAt = 48, FirstCountAt = 56, FixedWidth = 60;
constexpr std::int64_t FirstEntryWidth = 16, SecondCountWidth = 4, SecondEntryWidth = 28;

void SkipList(ByteCursor& cursor, const ByteCursor& record, Long row, Long count, std::int64_t entryWidth) {
  if (count < 0) {
    throw Failure{FailureNumber::OutsideTable,
                  record.Place("record", row) + ": a list of " + std::to_string(count) + " entries"};
  }
  cursor.Take(count * entryWidth, "record", row);
}

}  // namespace

void GetSquadInfo(RunState& run) {
  const InputFile input(run.DataPath + "\\squadron.dat",
                        "It is part of the simulation. The tool's folder must have a name of eight characters and be "
                        "beside the simulation's data folder.");
  const std::vector<Byte> bytes = input.ReadAll();
  const std::string file = Printable(input.Path());
  ByteCursor cursor(bytes, file);
  for (Long row = 0; row < SquadronsFilled; ++row) {
    const ByteCursor start = cursor;
    const Byte* record = cursor.Take(FixedWidth, "record", row);
    SquadRec& squadron = run.Squadrons[row];
    squadron.SquadName.clear();
    for (const Byte letter : std::span(record, NameLetters)) {
      // Quirk 24: every asterisk is dropped.
      if (letter != '*') squadron.SquadName += static_cast<char>(letter);
    }
    squadron.squadID = IntegerAt(record + IdAt);
    squadron.nation = IntegerAt(record + NationAt);
    SkipList(cursor, start, row, LongAt(record + FirstCountAt), FirstEntryWidth);
    SkipList(cursor, start, row, LongAt(cursor.Take(SecondCountWidth, "record", row)), SecondEntryWidth);
  }
}

}  // namespace velmoran
