// Which mission the aircraft of a flight will really fly.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Redraws the mission type of the flight in row index, first by the class of its aircraft and ClassOdds, then, while
// TypeOddsGate is 0, by the odds in TypeOdds of becoming an offensive patrol. Aircraft (0 to 50) is the flight's row
// of Aircraft, SquadID its squadron, MissionType (0 to 20) the caller's working value, which the change goes to.
// Writes MissionType of the row as well, save for the redraw of ClassAttacker. ShiftFlag becomes -1 when the second
// rule converted the flight of a nation other than 0, else 0. Draws once for a class rule that applies and once at an
// open gate.
void AlterMissionType(RunState& run, Integer index, Integer Aircraft, Integer SquadID, Integer& ShiftFlag,
                      Integer& MissionType);

}  // namespace velmoran
