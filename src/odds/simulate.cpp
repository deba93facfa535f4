#include "odds/simulate.h"

#include <algorithm>

#include "massage/massage_stopped.h"
#include "massage/sequence.h"
#include "state/numbering.h"

namespace velmoran {

namespace {

// Copies what RunMassage changes, and nothing else: the setup tables with their strings stay where they are.
void Restore(RunState& work, const RunState& opened) {
  std::copy_n(opened.Missions.begin(), opened.LoadedCount, work.Missions.begin());
  work.PlayerFlight = opened.PlayerFlight;
  work.MissionCount = opened.MissionCount;
  work.Removed = opened.Removed;
  work.SquadFlights = opened.SquadFlights;
  work.SquadFlightCount = opened.SquadFlightCount;
  work.SquadPlanes = opened.SquadPlanes;
  work.LostEscortFlights = opened.LostEscortFlights;
  work.LostEscortCount = opened.LostEscortCount;
  work.LostRendezvousFlights = opened.LostRendezvousFlights;
  work.LostRendezvousCount = opened.LostRendezvousCount;
}

bool LostEscort(const RunState& opened, const RunState& massaged, Long player) {
  bool had = false;
  for (Long row = 0; row < opened.LoadedCount; ++row) {
    if (!Escorts(opened.Missions[row], opened, player)) continue;
    if (massaged.Removed[row] == InPlay && massaged.Missions[row].MissionType == TypeEscort) return false;
    had = true;
  }
  return had;
}

Outcome OutcomeOf(const RunState& opened, const RunState& massaged) {
  Outcome outcome;
  for (Long row = 0; row < massaged.LoadedCount; ++row) {
    if (massaged.Removed[row] != InPlay) continue;
    const MissionRec& flight = massaged.Missions[row];
    ++outcome.flights;
    outcome.planes += flight.NumAircraft;
    if (flight.NumAircraft < 1) outcome.hasEmptyFlight = true;
    ++outcome.types[std::min(flight.MissionType, OtherType)];
  }
  const Long player = PlayerRow(opened);
  if (player < 0) return outcome;
  outcome.playerRemoved = massaged.Removed[player] != InPlay;
  if (outcome.playerRemoved) return outcome;
  outcome.playerType = massaged.Missions[player].MissionType;
  outcome.playerPlanes = massaged.Missions[player].NumAircraft;
  outcome.playerEscortLost = LostEscort(opened, massaged, player);
  return outcome;
}

}  // namespace

Outcome MassageCopy(const RunState& opened, RunState& work, Long seed) {
  Restore(work, opened);
  if (seed == 0) {
    work.Random = opened.Random;
  } else {
    work.Random.seed(static_cast<std::mt19937::result_type>(seed));
  }
  try {
    RunMassage(work);
  } catch (const MassageStopped& stopped) {
    const bool invalidSize = stopped.reason == MassageStopped::Reason::InvalidSize;
    return {.end = invalidSize ? Outcome::End::InvalidSize : Outcome::End::ListOverflow, .stoppedAt = stopped.row};
  }
  return OutcomeOf(opened, work);
}

Long PlayerRow(const RunState& opened) {
  return opened.PlayerFlight >= 0 && opened.PlayerFlight < opened.LoadedCount ? opened.PlayerFlight : -1;
}

bool Escorts(const MissionRec& flight, const RunState& opened, Long row) {
  return flight.MissionType == TypeEscort && flight.EscortedFlight == opened.Missions[row].FlightID;
}

}  // namespace velmoran
