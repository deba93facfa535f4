#include "massage/renumbering.h"

#include "state/numbering.h"
#include "state/player.h"

namespace velmoran {

void RenumberFlights(RunState& run) {
  Integer counter = 0;
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    // Quirk 61: by row. A removed player's flight keeps its number. The counter never exceeds the row, so the new
    // number matches no later row.
    if (IsPlayerRow(run, row)) run.PlayerFlight = counter;
    run.Missions[row].FlightID = counter++;
  }
  run.MissionCount = counter;
}

}  // namespace velmoran
