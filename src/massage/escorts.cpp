#include "massage/escorts.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>

#include "massage/removal.h"
#include "platform/platform.h"
#include "state/numbering.h"

namespace velmoran {

namespace {

// Sets found to the last row with this FlightID. Leaves it unchanged if there is none.
void FindFlight(const RunState& run, Long flightID, Integer& found) {
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Missions[row].FlightID == flightID) found = row;
  }
}

// Counts the removed rows up to and including lastRow.
Long CountRemoved(const RunState& run, Integer lastRow) {
  Long count = 0;
  for (Integer row = 0; row <= lastRow; ++row) count += run.Removed[row] == TakenOut ? 1 : 0;
  return count;
}

// Wraps around on overflow: a plan may hold any EscortedFlight.
Long Subtract(Long value, Long count) {
  return static_cast<Long>(static_cast<std::uint32_t>(value) - static_cast<std::uint32_t>(count));
}

void CancelRendezvous(RunState& run, Integer& found) {
  for (Integer entry = 0; entry < run.LostEscortCount; ++entry) {
    FindFlight(run, run.LostEscortFlights[entry], found);
    for (WaypointRec& waypoint : Route(run.Missions[found])) {
      // Quirk 57: every rendezvous, even if another escort is left.
      if (waypoint.Action == ActionRendezvous) waypoint.Action = ActionNavigate;
    }
  }
}

void RemoveEscortsOfLostFlights(RunState& run) {
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    const MissionRec& escort = run.Missions[row];
    if (escort.MissionType != TypeEscort) continue;
    for (Integer entry = 0; entry < run.LostRendezvousCount; ++entry) {
      if (run.LostRendezvousFlights[entry] != escort.EscortedFlight) continue;
      TakeOutOfPlay(run, row);  // Quirk 58: no cascade. This escort's own links are not followed.
    }
  }
}

void LowerLinks(RunState& run, Integer& found) {
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    MissionRec& escort = run.Missions[row];
    if (escort.MissionType != TypeEscort) continue;
    FindFlight(run, escort.EscortedFlight, found);
    // Quirk 60: counts the escorted flight's own row too, and may go below 0.
    escort.EscortedFlight = Subtract(escort.EscortedFlight, CountRemoved(run, found));
  }
}

}  // namespace

void ResolveEscorts(RunState& run) {
  Integer found = 0;  // Quirk 59: kept for the whole pass. A search without a match uses the row found before.
  CancelRendezvous(run, found);
  RemoveEscortsOfLostFlights(run);
  LowerLinks(run, found);
}

void VerifyEscorts(const RunState& run) {
  // EscortedFlight of each escort in play, and FlightID for each rendezvous in play.
  std::array<Integer, MissionRows> escorted;
  std::array<Integer, std::size_t{MissionRows} * WaypointRows> rendezvous;
  std::size_t escortCount = 0, rendezvousCount = 0;
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    const MissionRec& flight = run.Missions[row];
    if (flight.MissionType == TypeEscort) escorted[escortCount++] = Narrow(flight.EscortedFlight);
    for (const WaypointRec& waypoint : Route(flight)) {
      if (waypoint.Action == ActionRendezvous) rendezvous[rendezvousCount++] = Narrow(flight.FlightID);
    }
  }

  if (escortCount != rendezvousCount) {  // Quirk 62: then no link is checked.
    ShowMessage("Error: Number of escort missions does not match missions needing escort");
    return;
  }
  for (const Integer flightID : std::span(escorted).first(escortCount)) {
    if (std::ranges::count(std::span(rendezvous).first(rendezvousCount), flightID) > 0) continue;
    std::array<char, 64> text;
    // Quirk 5: a space on both sides of the colon.
    std::snprintf(text.data(), text.size(), "Error: Escort flight not found : %d", flightID);
    ShowMessage(text.data());
  }
}

}  // namespace velmoran
