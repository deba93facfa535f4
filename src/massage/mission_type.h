// The mission type that a flight gets.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Values of ShiftFlag.
inline constexpr Integer NotShifted = 0;
inline constexpr Integer Shifted = -1;

// Redraws the mission type of the flight in row index: first by the class of its aircraft and ClassOdds, then, if
// TypeOddsGate is 0, by the odds in TypeOdds of becoming an offensive patrol. Aircraft (0 to 50) is the flight's row of
// Aircraft, SquadID its squadron, MissionType (0 to 20) its type on entry and the new type on return. Writes
// MissionType of the row as well, except after the redraw for ClassAttacker. Sets ShiftFlag to Shifted if the second
// rule converted a flight of a nation other than 0, else to NotShifted. One draw for a class rule that applies, and one
// if TypeOddsGate is 0.
void AlterMissionType(RunState& run, Integer index, Integer Aircraft, Integer SquadID, Integer& ShiftFlag,
                      Integer& MissionType);

}  // namespace velmoran
