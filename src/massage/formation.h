// The formation that suits what a flight does at a waypoint and how many planes it has.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Gives every waypoint of every flight in play its formation, whatever it had. Needs the final NumAircraft.
void AdjustFormations(RunState& run);

// Sets Formation for a waypoint's Action. NumAircraft, FlightType and Target are those of the flight, any values.
void getBestFormationForAction(Byte Action, Long NumAircraft, Long FlightType, Long Target, Byte& Formation);

// Sets Formation for flying along, by the flight's size.
void getBestFormationEnroute(Long NumAircraft, Long FlightType, Byte& Formation);

}  // namespace velmoran
