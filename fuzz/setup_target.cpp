// The two setup files, separated by a cut.
#include <cmath>

#include "fakes.h"
#include "files/setup.h"
#include "session.h"
#include "state/failure.h"

using namespace velmoran;

namespace {

// What the two files say, or "" and the failure in message.
std::string Read(std::string& message) {
  RunState& run = fuzz::FreshState();
  SetInitialValues(run);
  try {
    ReadSetup(run);
  } catch (const Failure& failure) {
    message = FailureText(failure);
    return "";
  }
  std::string said;
  const auto say = [&said](double number) {
    fuzz::Expect(std::isfinite(number), "every number is finite");
    said += std::to_string(number) + ",";
  };
  for (const PeriodRec& period : run.Periods) {
    for (const double factor : period.SizeFactor) say(factor);
    for (const double odds : period.GroupOdds) say(odds);
    say(period.RemoveOdds);
  }
  for (const ClassOddsRec& odds : run.ClassOdds) said += fakes::Join(std::vector{odds.Recon, odds.Spotting});
  for (const MissionDefRec& def : run.MissionDefs) {
    said += fakes::Join(std::vector{def.MinAlt, def.MaxAlt, def.MinPlanes, def.MaxPlanes});
  }
  for (const TypeOddsRec& type : run.TypeOdds) {
    for (const double odds : type.Odds) say(odds);
  }
  fuzz::Expect(run.GroupCount <= GroupRows, "the groups fit their table");
  for (Long row = 0; row < run.GroupCount; ++row) {
    const SquadGroupRec& group = run.SquadGroups[row];
    fuzz::Expect(group.Count <= GroupSquads, "the squadrons of a group fit");
    said += fakes::Join(std::vector{group.Count, group.Kind}) + fakes::Join(group.Squads);
  }
  for (const AircraftRec& aircraft : run.Aircraft) {
    fuzz::Expect(aircraft.AircraftName.find_first_of("\r\n") == std::string::npos, "a name stands on one line");
    said += aircraft.AircraftName + fakes::Join(std::vector{aircraft.AircraftClass, aircraft.MinAlt, aircraft.MaxAlt});
  }
  return said;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const Byte* data, std::size_t size) {
  std::vector<fuzz::Bytes> parts = fuzz::Parts(data, size);
  parts.resize(2);
  fuzz::files = {{fuzz::IniName, parts[0]}, {fuzz::AircraftName, parts[1]}};
  std::string message, again;
  const std::string said = Read(message);
  fuzz::Expect(said.empty() != message.empty(), "the files are read or a message says why not");
  fuzz::Expect(message.empty() || message.find(" line ") != std::string::npos, "the message names a line");
  fuzz::Expect(message.find_first_of("\r\n") == std::string::npos, "the message is one line");

  // A byte order mark in front and line ends after the last item mean nothing.
  for (auto& [name, text] : fuzz::files) {
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    const bool marked =
        text.size() >= Mark.size() &&
        std::equal(Mark.begin(), Mark.end(), text.begin(), [](char a, Byte b) { return static_cast<Byte>(a) == b; });
    if (!marked) text.insert(text.begin(), Mark.begin(), Mark.end());
    if (message.empty()) text.insert(text.end(), 2, '\n');
  }
  fuzz::Expect(Read(again) == said && again == message, "the same text says the same twice");
  return 0;
}
