// Moving a waypoint, and giving it the action of its mission.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Moves Lon or Lat, as ShiftAxis says, by 200000 to 500000 upwards, at most to 4190000; positions have no unit. One
// draw, and none when ShiftAxis is outside 0 to 3 and nothing moves.
void ShiftWPPosition(RunState& run, Long& Lon, Long& Lat);

// Sets Action to the one that the mission type stands for, or to NoAction.
void GetActionByMission(Integer MissionType, Byte& Action);

// When the waypoint's action act is one that a mission may replace, act takes NewAction; else NewAction takes act.
// Afterwards NewAction shows the action that the waypoint has in the end.
void AlterWPAction(Byte& act, Byte& NewAction);

}  // namespace velmoran
