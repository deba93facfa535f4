// New numbers for the flights in play.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Gives the flights in play the FlightIDs 0, 1, 2 ... in table order, PlayerFlight the new number of the player's row,
// and MissionCount the number of flights in play. Rows don't move; removed ones keep their FlightID. No draws.
void RenumberFlights(RunState& run);

}  // namespace velmoran
