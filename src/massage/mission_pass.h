// The first pass of the massage: what a single mission flies, how high, where and with which actions.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Settles MissionType of the flight in row index, draws one altitude for it, and rewrites AltBytes, Lon and Lat of
// its inner waypoints (all but the first, the second and the last) and Action and ActionParam of all its waypoints.
void MassageMission(RunState& run, Integer index);

}  // namespace velmoran
