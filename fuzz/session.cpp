#include "session.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <set>
#include <tuple>
#include <type_traits>

#include "events/events.h"
#include "fakes.h"
#include "files/bytes.h"
#include "files/mission_file.h"
#include "state/numbering.h"

namespace fuzz {

using namespace velmoran;

namespace {

constexpr std::size_t HeaderSize = 17, HeadSize = 216, LinkSize = 4, WaypointSize = 46, TailSize = 148;
constexpr std::size_t WPCountAt = 192, EscortFlagAt = 204;

// What a plan that nothing has altered becomes in the file: all of it up to its last record, but without the links that
// a negative flag announces. The offsets here are independent of the program's.
Bytes Unaltered(const Bytes& file, Long count) {
  Bytes kept(file.begin(), file.begin() + HeaderSize);
  auto at = file.begin() + HeaderSize;
  for (Long row = 0; row < count; ++row) {
    const Long points = LongAt(&at[WPCountAt]), flag = LongAt(&at[EscortFlagAt]);
    kept.insert(kept.end(), at, at + HeadSize);
    at += HeadSize;
    if (flag < 0) at += LinkSize;
    const std::size_t rest = (flag > 0 ? LinkSize : 0) + WaypointSize * static_cast<std::size_t>(points) + TailSize;
    kept.insert(kept.end(), at, at + static_cast<std::ptrdiff_t>(rest));
    at += static_cast<std::ptrdiff_t>(rest);
  }
  return kept;
}

// The file's bytes; none if there is no such file.
const Bytes& FileNow(std::string_view name) {
  static const Bytes none;
  const auto file = files.find(name);
  return file == files.end() ? none : file->second;
}

}  // namespace

RunState& FreshState() {
  static RunState run;
  std::destroy_at(&run);
  return *std::construct_at(&run);
}

void Expect(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "This doesn't hold: %s\n", what);
  std::abort();
}

bool Session::Refused(char button, void (*event)(RunState&)) {
  static_assert(std::is_trivially_copyable_v<MissionRec>);
  static Bytes before(sizeof run_.Missions), after(sizeof run_.Missions);
  std::memcpy(before.data(), &run_.Missions, before.size());
  const auto rest = [this] {
    return std::tuple(run_.Removed, run_.PlayerFlight, run_.MissionCount, run_.LoadedCount, run_.HeaderBytes,
                      run_.HeaderFlag, fakes::form.buttons, fakes::form.hint, fakes::form.target);
  };
  const auto restBefore = rest();
  fakes::form.messages.clear();
  try {
    event(run_);
  } catch (const fakes::ProgramEnded& end) {
    Expect(end.failed && !fakes::form.messages.empty(), "the program ends by itself only after a message");
    ended_ = true;
    return true;
  }
  const std::set<std::string> states{"O---E", "-MR-E", "--RWE", "--R-E"};
  Expect(states.contains(fakes::form.buttons), "the buttons show one of the four states");
  const bool refused = Can(button);  // what is done can't be done again, but for a report, which alters nothing either
  if (refused) {
    std::memcpy(after.data(), &run_.Missions, after.size());
    Expect(after == before && rest() == restBefore, "a refused event changes nothing");
  }
  return refused;
}

bool Session::Can(char button) const {
  return !ended_ && fakes::form.buttons.find(button) != std::string::npos;
}

bool Session::Written() const {
  return !ended_ && fakes::form.buttons == "--R-E";
}

Session::Session() {
  fakes::form = {};
  const Files before = files;
  Refused('?', Form_Load);
  Expect(files == before, "a start changes no file");
}

void Session::Open(const std::string& typed) {
  if (!Can('O')) return;
  const Files before = files;
  fakes::form.answer = typed;
  const bool refused = Refused('O', OpenB_Click);
  Expect(files == before, "Open changes no file");
  Expect(fakes::form.messages.size() == (refused && !typed.empty() ? 1 : 0), "a refused Open shows one message");
  if (refused) return;
  const Bytes& file = FileNow(MissionName);
  Expect(ComposeMissionImage(run_) == Unaltered(file, run_.LoadedCount), "an unaltered plan keeps every byte");
}

void Session::Massage() {
  if (!Can('M')) return;
  const Files before = files;
  const Long playerSquad =
      run_.PlayerFlight >= 0 && run_.PlayerFlight < MissionRows ? run_.Missions[run_.PlayerFlight].SquadID : -1;
  const bool refused = Refused('M', MassageB_Click);
  Expect(files == before, "the massage changes no file");
  if (!refused) CheckMassaged(playerSquad);
}

void Session::CheckMassaged(Long playerSquad) const {
  Long number = 0;
  for (Long row = 0; row < run_.LoadedCount; ++row) {
    if (run_.Removed[row] != InPlay) continue;
    const MissionRec& flight = run_.Missions[row];
    Expect(flight.FlightID == number++, "the flights in play are numbered from 0");
    // Of several rows with the player's number, one is sized; the others keep their planes.
    if (flight.SquadID == playerSquad && std::ranges::find(run_.SquadFlights, row) == run_.SquadFlights.end()) {
      continue;
    }
    for (Long slot = std::max<Long>(flight.NumAircraft, 0); slot < Slots; ++slot) {
      Expect(flight.Planes[slot] == EmptySlot, "the slots past a flight's size are empty");
    }
  }
  Expect(run_.MissionCount == number, "the count is that of the flights in play");
}

void Session::Report() {
  if (!Can('R')) return;
  Files before = files;
  fakes::form.answer = ReportName;
  Refused('R', ReportB_Click);
  before[ReportName] = FileNow(ReportName);
  Expect(files == before, "a report changes no other file");
}

void Session::Write() {
  if (!Can('W')) return;
  Files before = files;
  const Bytes image = ComposeMissionImage(run_);
  const bool refused = Refused('W', WriteB_Click);
  Expect(refused == diskIsFull, "Write is refused by a full disk, and by nothing else");
  before[MissionName] = FileNow(MissionName);
  Expect(files == before, "Write changes no other file");
  if (!refused) Expect(FileNow(MissionName) == image, "Write writes the plan");
}

}  // namespace fuzz
