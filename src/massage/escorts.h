// Escort links after removals: carries each removal over to the other side of its link, and checks the result.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// A flight that lost an escort loses its rendezvous; an escort whose flight was removed is removed too. Then lowers
// EscortedFlight of every escort to the FlightID that RenumberFlights is about to give. Reads LostEscortFlights,
// LostRendezvousFlights and the old FlightIDs; writes Action, Removed and EscortedFlight. Shows PlayerFlightLost if an
// escort removed here is the player's flight. No draws.
void ResolveEscorts(RunState& run);

// Shows a message if the escorts in play and the rendezvous waypoints in play don't match. Needs the new FlightIDs.
// Changes nothing. No draws.
void VerifyEscorts(const RunState& run);

}  // namespace velmoran
