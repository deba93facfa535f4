// The whole massage.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Takes every pass over the flights that Open has read, in their one order. Needs a plan that CheckPlan has let pass.
// Writes no file. Throws MassageStopped (massage/massage_stopped.h) when a flight gets an invalid size or a list of
// lost escorts is full. MassageB_Click calls it, once in a run.
void RunMassage(RunState& run);

}  // namespace velmoran
