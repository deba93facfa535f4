#include "state/roster.h"

#include <algorithm>

namespace velmoran {

namespace {

// The squadron's row, the last of several; null if the roster doesn't have it.
const SquadRec* FindSquadron(const RunState& run, Long squadID) {
  const auto last = run.Squadrons.rend() - SquadronsFilled;  // Quirk 25: the last of several counts.
  const auto found = std::find_if(last, run.Squadrons.rend(),
                                  [squadID](const SquadRec& squadron) { return squadron.squadID == squadID; });
  return found == run.Squadrons.rend() ? nullptr : &*found;
}

}  // namespace

void GetNation(const RunState& run, Integer squadID, Integer& nation) {
  // Quirk 26: unchanged for a squadron that isn't in the roster.
  if (const SquadRec* squadron = FindSquadron(run, squadID)) nation = squadron->nation;
}

void GetSquadName(const RunState& run, Long squadID, std::string_view& SquadName) {
  const SquadRec* squadron = FindSquadron(run, squadID);
  SquadName = squadron ? std::string_view(squadron->SquadName) : "Unknown";
}

}  // namespace velmoran
