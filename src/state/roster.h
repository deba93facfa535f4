// Look-ups in the squadron roster, which files/roster.h reads at start.
#pragma once

#include <string_view>

#include "state/run_state.h"

namespace velmoran {

// Sets nation to that of the squadron; of several rows with its id the last one counts. If the roster doesn't have the
// squadron, nation keeps the caller's value.
void GetNation(const RunState& run, Integer squadID, Integer& nation);

// Sets SquadName to the squadron's name, by the same rule, or to "Unknown". It points into the RunState. squadID is
// compared as a Long: an id that doesn't fit in 16 bits is in no row.
// Quirk 27: GetNation compares 16 bits.
void GetSquadName(const RunState& run, Long squadID, std::string_view& SquadName);

}  // namespace velmoran
