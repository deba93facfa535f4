// Joining the flights of two squadrons of a group into one mission. The pass stands complete; no event starts it. A
// caller would have to come before RenumberFlights, since PlayerFlight is taken for a row of Missions here. Flights
// are named by their row.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Lets each flight in play whose squadron is in a group find a flight to join, and notes each pair in GroupPairs.
void CombineFormations(RunState& run);

// The row of SquadGroups that holds the squadron, the last of several, or -1.
Integer isGroupedSquadron(const RunState& run, Integer squadID);

// The first flight of a squadron of the group that sourceIndex can join, or -1. One draw, in every case: below
// GroupOdds of the group's Kind, in row 0 of Periods, there is no joining. A Kind outside 0 to 4 joins none. squadID
// plays no part.
Integer findAssociatedMissionIndex(RunState& run, Integer squadID, Integer groupIndex, Integer sourceIndex);

// Gives the mission of sourceIndex to targetIndex: type, target, and waypoint by waypoint actions and parts of the
// route.
void doMissionGrouping(RunState& run, Integer sourceIndex, Integer targetIndex);

}  // namespace velmoran
