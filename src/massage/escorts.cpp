#include "massage/escorts.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>

#include "massage/flight_size.h"
#include "platform/platform.h"
#include "state/numbering.h"

namespace velmoran {

namespace {

// Takes the row with the FlightID as the found row, the last of several; leaves found alone where there is none.
void FindFlight(const RunState& run, Long flightID, Integer& found) {
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Missions[row].FlightID == flightID) found = row;
  }
}

Long RemovedUpTo(const RunState& run, Integer last) {
  Long count = 0;
  for (Integer row = 0; row <= last; ++row) count += run.Removed[row] == TakenOut ? 1 : 0;
  return count;
}

// Wraps around: a plan may hold any EscortedFlight.
Long Less(Long value, Long count) {
  return static_cast<Long>(static_cast<std::uint32_t>(value) - static_cast<std::uint32_t>(count));
}

}  // namespace

void ResolveEscorts(RunState& run) {
  Integer found = 0;  // for the whole pass: a search without a match works on the row of the match before
  for (Integer entry = 0; entry < run.LostEscortCount; ++entry) {
    FindFlight(run, run.LostEscortFlights[entry], found);
    MissionRec& flight = run.Missions[found];
    for (Long k = 0; k < flight.WPCount; ++k) {
      Byte& action = flight.Waypoints[k].Action;
      if (action == ActionRendezvous) action = ActionNavigate;
    }
  }

  for (Integer row = 0; row < run.LoadedCount; ++row) {
    const MissionRec& escort = run.Missions[row];
    if (escort.MissionType != TypeEscort) continue;
    for (Integer entry = 0; entry < run.LostRendezvousCount; ++entry) {
      if (run.LostRendezvousFlights[entry] != escort.EscortedFlight) continue;
      run.Removed[row] = TakenOut;  // and no further: what this escort's own loss means is not followed up
      if (escort.FlightID == run.PlayerFlight) ShowMessage(PlayerFlightLost);
    }
  }

  for (Integer row = 0; row < run.LoadedCount; ++row) {
    MissionRec& escort = run.Missions[row];
    if (escort.MissionType != TypeEscort) continue;
    FindFlight(run, escort.EscortedFlight, found);
    escort.EscortedFlight = Less(escort.EscortedFlight, RemovedUpTo(run, found));
  }
}

void RenumberFlights(RunState& run) {
  Integer counter = 0;
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    // By row, not by FlightID; the counter never passes the row, so the new number matches no later row.
    if (row == run.PlayerFlight) run.PlayerFlight = counter;
    run.Missions[row].FlightID = counter++;
  }
  run.MissionCount = counter;
}

void VerifyEscorts(const RunState& run) {
  std::array<Integer, MissionRows> escorted;                                // by escorts in play
  std::array<Integer, std::size_t{MissionRows} * WaypointRows> rendezvous;  // one entry a waypoint
  std::size_t escorts = 0, meetings = 0;
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    const MissionRec& flight = run.Missions[row];
    if (flight.MissionType == TypeEscort) escorted[escorts++] = Narrow(flight.EscortedFlight);
    for (Long k = 0; k < flight.WPCount; ++k) {
      if (flight.Waypoints[k].Action == ActionRendezvous) rendezvous[meetings++] = Narrow(flight.FlightID);
    }
  }

  if (escorts != meetings) {
    ShowMessage("Error: Number of escort missions does not match missions needing escort");
    return;
  }
  for (const Integer flightID : std::span(escorted).first(escorts)) {
    if (std::ranges::count(std::span(rendezvous).first(meetings), flightID) > 0) continue;
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "Error: Escort flight not found : %d", flightID);
    ShowMessage(text.data());
  }
}

}  // namespace velmoran
