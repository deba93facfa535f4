// The player's flight and squadron. PlayerFlight is compared as a FlightID in some places and used as a row of Missions
// in others. In the simulation's plans the two agree until RenumberFlights; in any other plan they may not.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Whether PlayerFlight is the FlightID of this flight.
inline bool IsPlayerFlight(const RunState& run, const MissionRec& flight) {
  return flight.FlightID == run.PlayerFlight;
}

// Whether PlayerFlight is this row of Missions.
inline bool IsPlayerRow(const RunState& run, Integer row) {
  return row == run.PlayerFlight;
}

// Whether the flight is in the squadron of the flight in row PlayerFlight. Requires PlayerFlight in 0 to 200.
inline bool InPlayerSquadron(const RunState& run, const MissionRec& flight) {
  // Quirk 43: by row. For a row that wasn't read, squadron 0 is the player's.
  return flight.SquadID == run.Missions[run.PlayerFlight].SquadID;
}

}  // namespace velmoran
