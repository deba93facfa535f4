// The number of planes in a flight.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Gives the flight in row index a new size, drawn between the limits of its mission type, and draws whether it is
// removed. Writes Planes and NumAircraft, and for a removal what RemoveFlight writes. Two draws. Throws MassageStopped
// for a size outside 1 to 12, and as RemoveFlight does. A flight of the player's squadron is only added to
// SquadFlights, with no draw.
void AdjustFlightSize(RunState& run, Integer index);

// A size between the limits of the flight's mission type, one draw. Both limits are half as likely as each size between
// them.
Long DrawFlightSize(RunState& run, const MissionRec& flight);

// The size times the SizeFactor of the war period and the nation (0 to 4), rounded to the nearest (ties to even), at
// least 2.
Long ScaleFlightSize(const RunState& run, Long size, Integer nation);

// The size, at most 9 for nation 0.
Long CapFlightSize(Long size, Integer nation);

}  // namespace velmoran
