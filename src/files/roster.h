// Reads the simulation's squadron roster: which squadrons exist, what they are called and which nation they belong to.
// state/roster.h looks them up.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Fills rows 0 to 189 of Squadrons from "\squadron.dat" in DataPath: 190 records of 64 bytes and two lists each,
// little-endian. Throws Failure when the file can't be read, is shorter than its records say, or has a list with a
// negative count; Squadrons may then be filled in part. Form_Load calls it.
void GetSquadInfo(RunState& run);

}  // namespace velmoran
