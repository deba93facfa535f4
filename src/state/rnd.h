// The random draws of a run. Tests link a scripted source in place of this one.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Starts the source over, always at the same point: runs that make the same draws get the same numbers.
void SeedRnd(RunState& run);

// One uniform draw in [0, 1), of single precision (24 bits), widened so that all that is worked out from it is worked
// out in double. Each call is one draw.
double Rnd(RunState& run);

}  // namespace velmoran
