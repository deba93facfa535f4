// The altitude of a mission. Altitudes are numbers of the simulation and have no unit.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Draws BaseAlt from the band that MissionDefs of MissionType (0 to 20) and Aircraft (row 0 to 50) allow; classes 1
// and 2 have a bias downwards and upwards and draw once more for it. 0, with no draw, for a mission type whose MaxAlt
// is 0: its altitudes stay as they are.
void GetBaseAlt(RunState& run, Integer MissionType, Integer Aircraft, Integer& BaseAlt);

}  // namespace velmoran
