#include "massage/sequence.h"

#include "massage/escorts.h"
#include "massage/flight_size.h"
#include "massage/formation.h"
#include "massage/mission_pass.h"
#include "massage/renumbering.h"
#include "massage/squadron_strength.h"

namespace velmoran {

void RunMassage(RunState& run) {
  for (Integer row = 0; row < run.LoadedCount; ++row) MassageMission(run, row);
  // Sizes depend on the final mission types.
  for (Integer row = 0; row < run.LoadedCount; ++row) AdjustFlightSize(run, row);
  BalanceSquadrons(run);
  AdjustPlayerSquadron(run);
  ResolveEscorts(run);  // needs the old FlightIDs
  RenumberFlights(run);
  VerifyEscorts(run);  // needs the new FlightIDs
  AdjustFormations(run);
}

}  // namespace velmoran
