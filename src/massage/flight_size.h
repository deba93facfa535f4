// How many planes a flight flies with, and taking a flight out of play.
#pragma once

#include <string_view>

#include "state/run_state.h"

namespace velmoran {

// Shown when the player's own flight is taken out of play.
inline constexpr std::string_view PlayerFlightLost =
    "Velmoran failed: don't freak - happens sometimes.  Play without velmoran or make a new mission";

// Gives the flight in row index a new size, drawn between the limits of its mission type, and draws whether it is
// taken out of play. A flight of the player's squadron is only noted in SquadFlights, with no draw. Writes Planes and
// NumAircraft, and for a removal what RemoveFlight writes. Throws MassageStopped for a size outside 1 to 12.
void AdjustFlightSize(RunState& run, Integer index);

// Takes the flight in row index out of play and notes what that means for escorts: the flight that a removed escort
// escorted in LostEscortFlights, a removed flight in LostRendezvousFlights once for each of its rendezvous waypoints.
// A further call for the same flight notes it again. Tells the user when it is the player's flight. Throws
// MassageStopped when a list is full.
void RemoveFlight(RunState& run, Integer index);

// Whether the flight is of the squadron of the flight in row PlayerFlight (0 to 200).
bool InPlayerSquadron(const RunState& run, const MissionRec& flight);

// A flight's size between the limits of its mission type, one draw; both limits are half as likely as each size
// between them.
Long DrawFlightSize(RunState& run, const MissionRec& flight);

// The size as the war period and the nation (0 to 4) make it, 2 at least.
Long ScaleFlightSize(const RunState& run, Long size, Integer nation);

// The size as far as the nation allows it: 9 at most for nation 0.
Long CapFlightSize(Long size, Integer nation);

}  // namespace velmoran
