// Checks that every table index in a plan is within its table. The passes rely on it and don't check again.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Throws Failure, which names the row, the field, its value and the limits but no file, if a plan with flights has: a
// PlayerFlight outside 0 to 200; a row with MissionType outside 0 to 20, SquadID outside 0 to 200, slot 0 of Planes
// outside -1 to 50 or a squadron whose nation in the roster is outside 0 to 4; more than 12 flights of the player's
// squadron beside the player's own; or more than 13 pilots in the flights that SquadFlights will hold. Changes
// nothing.
void CheckPlan(const RunState& run);

}  // namespace velmoran
