// The altitude of a mission. Altitudes are numbers of the simulation and have no unit.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Altitudes are drawn from the range that a mission type and an aircraft have in common, from RangeFloor up. If they
// have none, they are drawn from the SubstituteDepth below the higher of their minimums (RangeFloor or more), but from
// no less than SubstituteFloor.
inline constexpr Integer RangeFloor = 2000, SubstituteDepth = 1000, SubstituteFloor = 1500;

// Draws BaseAlt (1500 or more) from the range that row MissionType (0 to 20) of MissionDefs and row Aircraft (0 to 50)
// of Aircraft have in common. One draw; for classes 1 and 2 another before it, which may halve the range downwards or
// upwards. For a mission type whose MaxAlt is 0, BaseAlt is 0 and nothing is drawn: the flight keeps its altitudes.
void GetBaseAlt(RunState& run, Integer MissionType, Integer Aircraft, Integer& BaseAlt);

}  // namespace velmoran
