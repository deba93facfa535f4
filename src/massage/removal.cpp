#include "massage/removal.h"

#include <string>

#include "massage/massage_stopped.h"
#include "platform/platform.h"
#include "state/failure.h"
#include "state/numbering.h"
#include "state/player.h"

namespace velmoran {

namespace {

// Adds the FlightID to the list. row is the flight that is being removed.
void Append(Table<Integer, MissionRows>& list, Integer& count, Long flightID, std::string_view name, Integer row) {
  if (count == MissionRows) {
    throw MassageStopped{
        MassageStopped::Reason::ListOverflow, row,
        FailureText({FailureNumber::OutsideTable,
                     std::string(name) + " has no room for flight " + std::to_string(flightID) + ": it holds " +
                         std::to_string(MissionRows) + " already. The mission file was not changed",
                     "Lower the odds of removal in Velmoran.ini."})};
  }
  list[count++] = Narrow(flightID);
}

}  // namespace

void TakeOutOfPlay(RunState& run, Integer index) {
  run.Removed[index] = TakenOut;
  // Quirk 3: only a warning. The massage goes on.
  if (IsPlayerFlight(run, run.Missions[index])) ShowMessage(PlayerFlightLost);
}

void RemoveFlight(RunState& run, Integer index) {
  const MissionRec& flight = run.Missions[index];
  TakeOutOfPlay(run, index);
  if (flight.MissionType == TypeEscort) {
    // Quirk 55: an escort's own waypoints don't count.
    Append(run.LostEscortFlights, run.LostEscortCount, flight.EscortedFlight, "LostEscortFlights", index);
    return;
  }
  for (const WaypointRec& waypoint : Route(flight)) {
    if (waypoint.Action != ActionRendezvous) continue;
    // Quirk 56: once for each rendezvous.
    Append(run.LostRendezvousFlights, run.LostRendezvousCount, flight.FlightID, "LostRendezvousFlights", index);
  }
}

}  // namespace velmoran
