// Removes a flight from the plan, and records what that means for escorts.
#pragma once

#include <string_view>

#include "state/run_state.h"

namespace velmoran {

// Shown when the player's own flight is removed.
inline constexpr std::string_view PlayerFlightLost =
    // Quirk 2: two spaces between sentences.
    "Velmoran failed: don't freak - happens sometimes.  Play without velmoran or make a new mission";

// Removes the flight in row index: sets Removed, and shows PlayerFlightLost if it is the player's. A removed escort
// adds its EscortedFlight to LostEscortFlights. Any other flight adds its FlightID to LostRendezvousFlights, once for
// each of its rendezvous waypoints. Removing a flight again adds it again. Throws MassageStopped if the list is full.
void RemoveFlight(RunState& run, Integer index);

// Sets Removed of row index, and shows PlayerFlightLost if the flight is the player's. Records nothing.
void TakeOutOfPlay(RunState& run, Integer index);

}  // namespace velmoran
