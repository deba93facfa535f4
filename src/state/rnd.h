// The random draws of a run. Tests link a scripted source instead.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Seeds the source with a fixed value, so that runs that make the same draws get the same numbers.
void SeedRnd(RunState& run);

// One uniform draw in [0, 1), of single precision (24 bits). Returned as a double, so that calculations with it are in
// double precision. Each call is one draw.
double Rnd(RunState& run);

}  // namespace velmoran
