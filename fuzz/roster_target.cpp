// The squadron roster.
#include <algorithm>
#include <string>

#include "files/roster.h"
#include "session.h"
#include "state/failure.h"
#include "state/roster.h"

using namespace velmoran;

namespace {

// What the roster says of its squadrons, or "" and the failure in message.
std::string Read(std::string& message) {
  RunState& run = fuzz::FreshState();
  try {
    GetSquadInfo(run);
  } catch (const Failure& failure) {
    message = FailureText(failure);
    return "";
  }
  std::string said;
  for (Long row = 0; row < SquadronRows; ++row) {
    const SquadRec& squadron = run.Squadrons[row];
    fuzz::Expect(squadron.SquadName.size() <= 39, "a name has at most 39 letters");
    fuzz::Expect(squadron.SquadName.find('*') == std::string::npos, "a name has no asterisk");
    if (row >= SquadronsFilled) {
      fuzz::Expect(squadron.SquadName.empty() && squadron.squadID == 0, "the last rows stay empty");
      continue;
    }
    Integer nation = -1;
    std::string_view name;
    GetNation(run, squadron.squadID, nation);
    GetSquadName(run, squadron.squadID, name);
    const auto last = std::find_if(run.Squadrons.rend() - SquadronsFilled, run.Squadrons.rend(),
                                   [&](const SquadRec& other) { return other.squadID == squadron.squadID; });
    fuzz::Expect(nation == last->nation && name == last->SquadName, "the last of several rows counts");
    said += squadron.SquadName + std::to_string(squadron.squadID) + "," + std::to_string(squadron.nation) + ";";
  }
  return said;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const Byte* data, std::size_t size) {
  fuzz::files = {{fuzz::RosterName, {data, data + size}}};
  std::string message;
  const std::string said = Read(message);
  if (!message.empty()) {
    fuzz::Expect(message.find("squadron.dat, record ") != std::string::npos, "the message names a record");
    return 0;
  }
  fuzz::files[fuzz::RosterName].push_back('x');
  fuzz::Expect(Read(message) == said, "what stands behind the last record doesn't matter");
  return 0;
}
