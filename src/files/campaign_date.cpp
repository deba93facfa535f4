#include "files/campaign_date.h"

#include <string>
#include <vector>

#include "files/bytes.h"
#include "files/disk.h"
#include "files/path.h"

namespace velmoran {

namespace {

// Offsets and widths in bytes. The second control word comes after two lists, each after its count; AxisAt is its
// offset if both are empty.
constexpr Long DateAt = 3200, GateAt = 3216, FirstCountAt = 3343, AxisAt = 3380;
constexpr Long CountWidth = 4, EntryWidth = 16;

// The most entries with which a list's width, and after the first list also the second count's position (from 1), fits
// an Integer.
constexpr Long FirstListLimit = (32767 - (FirstCountAt + CountWidth + 1)) / EntryWidth;
constexpr Long SecondListLimit = 32767 / EntryWidth;

const Byte* At(const std::vector<Byte>& bytes, std::string_view file, Long offset, Long width, std::string_view part) {
  return ByteCursor(bytes, file, offset).Take(width, part);
}

Long CountAt(const std::vector<Byte>& bytes, std::string_view file, Long offset, Long limit) {
  // Quirk 28: 2 of the count's 4 bytes.
  const Long count = IntegerAt(At(bytes, file, offset, 2, "count of a list"));
  if (count < 0 || count > limit) {
    throw Failure{FailureNumber::OutsideTable,
                  std::string(file) + " at offset " + std::to_string(offset) + ": " +
                      OutsideText("a list of " + std::to_string(count) + " entries", 0, limit)};
  }
  return count;
}

Integer PeriodOf(std::int64_t days) {
  Integer period = 0;
  for (const Long start : PeriodStarts) {
    if (days >= start) ++period;
  }
  return period;
}

}  // namespace

void ReadCampaignDate(RunState& run) {
  const InputFile input(run.DatPath, "The campaign file must be beside the mission file, with the extension dat.");
  const std::vector<Byte> bytes = input.ReadAll();
  const std::string file = Printable(input.Path());
  const Long date = LongAt(At(bytes, file, DateAt, 4, "date"));
  const Integer gate = IntegerAt(At(bytes, file, GateAt, 2, "first control word"));
  const Long first = CountAt(bytes, file, FirstCountAt, FirstListLimit);
  const Long second = CountAt(bytes, file, FirstCountAt + CountWidth + EntryWidth * first, SecondListLimit);
  const Integer axis = IntegerAt(At(bytes, file, AxisAt + EntryWidth * (first + second), 2, "second control word"));

  run.CampaignDate = date;
  run.TypeOddsGate = gate;
  run.ShiftAxis = axis;
  run.WarPeriod = PeriodOf(std::int64_t{date} - run.CampaignStart);
}

}  // namespace velmoran
