// Escort links after removals: applies each removal to the flight at the other end of its link, and checks the result.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Cancels the rendezvous of flights that lost an escort, and removes escorts whose flight was removed. Then lowers
// EscortedFlight of every escort to the FlightID that RenumberFlights will give that flight. Reads LostEscortFlights,
// LostRendezvousFlights and the old FlightIDs; writes Action, Removed and EscortedFlight. Shows PlayerFlightLost if an
// escort removed here is the player's flight. No draws.
void ResolveEscorts(RunState& run);

// Shows a message if the escorts and the rendezvous waypoints in play differ in number, else one for each escort whose
// flight has no rendezvous. Needs the new FlightIDs. Changes nothing. No draws.
void VerifyEscorts(const RunState& run);

}  // namespace velmoran
