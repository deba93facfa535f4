// New numbers for the flights in play.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Sets FlightID of the flights in play to 0, 1, 2 ... in table order, PlayerFlight to the new number of the player's
// row if that is in play, and MissionCount to the number of flights in play. Rows don't move; removed ones keep their
// FlightID. No draws.
void RenumberFlights(RunState& run);

}  // namespace velmoran
