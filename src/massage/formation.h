// The formation for each waypoint, by what the flight does there and how many planes it has.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Sets Formation of every waypoint of every flight in play. Needs the final NumAircraft. No draws.
void AdjustFormations(RunState& run);

// Sets Formation for a waypoint's Action. NumAircraft, FlightType and Target are those of the flight, any values.
void getBestFormationForAction(Byte Action, Long NumAircraft, Long FlightType, Long Target, Byte& Formation);

// Sets the Formation that a flight of this size and type has en route.
void getBestFormationEnroute(Long NumAircraft, Long FlightType, Byte& Formation);

}  // namespace velmoran
