#include "massage/sequence.h"

#include "massage/escorts.h"
#include "massage/flight_size.h"
#include "massage/formation.h"
#include "massage/mission_pass.h"
#include "massage/squadron_strength.h"

namespace velmoran {

void RunMassage(RunState& run) {
  for (Integer row = 0; row < run.LoadedCount; ++row) MassageMission(run, row);
  // Sizes go by the final mission types of all flights.
  for (Integer row = 0; row < run.LoadedCount; ++row) AdjustFlightSize(run, row);
  BalanceSquadrons(run);
  AdjustPlayerSquadron(run);
  ResolveEscorts(run);  // by the old FlightIDs
  RenumberFlights(run);
  VerifyEscorts(run);  // by the new ones
  AdjustFormations(run);
}

}  // namespace velmoran
