// The altitude of a mission. Altitudes are numbers of the simulation and have no unit.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Draws BaseAlt from the range that MissionDefs of MissionType (0 to 20) and row Aircraft (0 to 50) of Aircraft have in
// common. One draw, and for classes 1 and 2 a second one, for a bias downwards or upwards. For a mission type whose
// MaxAlt is 0, BaseAlt is 0 and nothing is drawn: the flight keeps its altitudes.
void GetBaseAlt(RunState& run, Integer MissionType, Integer Aircraft, Integer& BaseAlt);

}  // namespace velmoran
