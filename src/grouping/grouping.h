// Joins the flights of two squadrons of a group into one mission. The pass is complete, but no event starts it. A
// caller would have to run it before RenumberFlights, since it uses PlayerFlight as a row of Missions. Indices are
// rows of Missions, but for that of a group.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// For each flight in play whose squadron is in a group, looks for a flight to join, joins the two, and adds the pair to
// GroupPairs. One draw for each such flight.
// Quirk 76: nothing calls it.
void CombineFormations(RunState& run);

// The row of SquadGroups with the squadron, the last of several, or -1.
Integer isGroupedSquadron(const RunState& run, Integer squadID);

// The first flight of a squadron of the group (a row of SquadGroups) that sourceIndex can join, or -1. Always one draw.
// A draw below GroupOdds of the group's Kind, in row 0 of Periods, joins nothing. Neither does a Kind outside 0 to 4.
// squadID is not used.
Integer findAssociatedMissionIndex(RunState& run, Integer squadID, Integer groupIndex, Integer sourceIndex);

// Copies the mission of sourceIndex to targetIndex: types, Target, HeadLong16, HeadLong24 and the waypoints. The first
// two waypoints and the last but one keep their position, altitude and WPLong20, all others Formation and WPByte34. No
// draws.
void doMissionGrouping(RunState& run, Integer sourceIndex, Integer targetIndex);

}  // namespace velmoran
