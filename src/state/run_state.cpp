#include "state/run_state.h"

#include "state/numbering.h"

namespace velmoran {

void SetInitialValues(RunState& run) {
  run.LoadedCount = 0;
  run.MissionCount = 0;
  run.SquadFlightCount = 1;
  run.CampaignStart = FirstCampaignDay;

  // Quirk 12: the last row or entry of these tables stays zero, as do the rows of Aircraft that no file fills.
  for (Long row = 0; row < MissionRows - 1; ++row) run.Removed[row] = InPlay;
  for (Long slot = 0; slot < PlayerFlights - 1; ++slot) run.SquadFlights[slot] = -1;
  for (Long row = 0; row < AircraftFilled; ++row) run.Aircraft[row].MinAlt = run.Aircraft[row].MaxAlt = 0;
  for (Long row = 0; row < GroupRows - 1; ++row) {
    run.SquadGroups[row] = {.Count = 0, .Kind = -1, .Squads = {-1, -1, -1, -1, 0}};
  }
  for (Long row = 0; row < PairRows - 1; ++row) run.GroupPairs[row] = {.sourceIndex = -1, .targetIndex = -1};
  run.GroupPairCount = 0;
}

}  // namespace velmoran
