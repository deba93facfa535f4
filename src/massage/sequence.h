// The whole massage.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Runs every pass, in order, over the flights that Open has read. Requires a plan that passes CheckPlan. Writes no
// file. Throws MassageStopped (massage/massage_stopped.h) if a flight gets an invalid size or a list of lost escorts is
// full. MassageB_Click calls it once in a run, velmoran-odds many times on a copy.
void RunMassage(RunState& run);

}  // namespace velmoran
