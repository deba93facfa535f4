// The position and the action of a waypoint.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Moves Lon (ShiftAxis 1 or 3) or Lat (0 or 2) up by 200000 to 500000, but not beyond 4190000. Positions have no unit.
// One draw. Any other ShiftAxis moves nothing and draws nothing.
void ShiftWPPosition(RunState& run, Long& Lon, Long& Lat);

// Sets Action to the one that flights of this mission type perform, or to NoAction.
void GetActionByMission(Integer MissionType, Byte& Action);

// If act is an action that a mission may replace (3 to 9, 13), sets act to NewAction, which must not be NoAction; else
// sets NewAction to act. Either way, NewAction is the waypoint's action afterwards.
void AlterWPAction(Byte& act, Byte& NewAction);

}  // namespace velmoran
