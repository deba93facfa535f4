// Making the flights in play consistent again once the removals are known: escort links, numbers, and a check.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Lets each removal take effect on the other side of the escort link: flights that lost an escort lose their
// rendezvous, escorts whose flight is gone are taken out of play. Then moves EscortedFlight of every escort to the
// numbers that RenumberFlights is about to give. Needs the old FlightIDs. Tells the user when the player's flight is
// taken out.
void ResolveEscorts(RunState& run);

// Gives the flights in play the FlightIDs 0, 1, 2 ... in table order, PlayerFlight the new number of the player's
// row, and MissionCount the number of flights in play. Rows don't move; removed ones keep their FlightID.
void RenumberFlights(RunState& run);

// Tells the user when escorts and flights with a rendezvous don't match. Needs the new FlightIDs; changes nothing.
void VerifyEscorts(const RunState& run);

}  // namespace velmoran
