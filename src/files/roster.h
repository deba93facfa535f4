// The simulation's squadron roster: which squadrons exist, what they are called and which nation they belong to.
#pragma once

#include <string_view>

#include "state/run_state.h"

namespace velmoran {

// Fills rows 0 to 189 of Squadrons from "\squadron.dat" in DataPath: 190 records of 64 bytes and two lists each,
// little-endian. Throws Failure when the file can't be read, is shorter than its records say, or has a list of fewer
// than no entries; Squadrons may then be filled in part. Form_Load calls it.
void GetSquadInfo(RunState& run);

// Sets nation to that of the squadron; of several rows with its id the last one counts. A squadron that the roster
// doesn't hold leaves nation as the caller passed it.
void GetNation(const RunState& run, Integer squadID, Integer& nation);

// Sets SquadName to the squadron's name, by the same rule, or to "Unknown". It points into the RunState. squadID is
// compared as a Long: an id beyond 16 bits is in no row.
void GetSquadName(const RunState& run, Long squadID, std::string_view& SquadName);

}  // namespace velmoran
