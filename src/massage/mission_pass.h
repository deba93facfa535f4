// The first pass of the massage: the mission type of one flight, its altitude, and its route.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Redraws MissionType of the flight in row index and draws one altitude for it. Then rewrites AltBytes, Lon and Lat of
// its inner waypoints (all but the first, the second and the last), and Action and ActionParam of all its waypoints.
// Draws for the type and the altitude, then for each waypoint in turn: its shift, if it is moved, and its ActionParam,
// if it loiters.
void MassageMission(RunState& run, Integer index);

}  // namespace velmoran
