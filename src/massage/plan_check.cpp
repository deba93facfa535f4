#include "massage/plan_check.h"

#include <algorithm>
#include <string>

#include "state/failure.h"
#include "state/numbering.h"
#include "state/player.h"
#include "state/roster.h"

namespace velmoran {

namespace {

// Throws unless the value is within its limits. part is its place in the mission file; row is the number of a record
// there, or -1.
void CheckRange(std::string_view part, Long row, std::string_view field, Long value, Long least, Long most) {
  if (value >= least && value <= most) return;
  throw Failure{FailureNumber::OutsideTable,
                std::string(part) + (row < 0 ? "" : " " + std::to_string(row)) + ": " +
                    OutsideText(std::string(field) + " " + std::to_string(value), least, most)};
}

void CheckRow(const RunState& run, Integer row) {
  const MissionRec& flight = run.Missions[row];
  CheckRange("record", row, "MissionType", flight.MissionType, 0, TypeRows - 1);
  CheckRange("record", row, "SquadID", flight.SquadID, 0, SquadronRows - 1);
  CheckRange("record", row, "Planes slot 0", flight.Planes[0], EmptySlot, AircraftRows - 1);
  Integer nation = NationZero;
  GetNation(run, Narrow(flight.SquadID), nation);
  CheckRange("record", row, "the nation of its squadron in squadron.dat,", nation, 0, Nations - 1);
}

Long PilotsOf(const MissionRec& flight) {
  return static_cast<Long>(std::ranges::count_if(flight.Pilots, [](Long pilot) { return pilot > EmptySlot; }));
}

void CheckPlayerSquadron(const RunState& run) {
  Long others = 0, ownPilots = 0, otherPilots = 0;
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    const MissionRec& flight = run.Missions[row];
    if (!InPlayerSquadron(run, flight)) continue;
    if (IsPlayerFlight(run, flight)) {
      ownPilots = PilotsOf(flight);  // of several such rows, the last one counts
    } else {
      ++others;
      otherPilots += PilotsOf(flight);
    }
  }
  CheckRange("player's squadron", -1, "number of flights beside the player's", others, 0, PlayerFlights - 1);
  CheckRange("player's squadron", -1, "number of pilots", ownPilots + otherPilots, 0, PlayerPilots);
}

}  // namespace

void CheckPlan(const RunState& run) {
  if (run.LoadedCount == 0) return;
  CheckRange("header", -1, "PlayerFlight", run.PlayerFlight, 0, MissionRows - 1);
  for (Integer row = 0; row < run.LoadedCount; ++row) CheckRow(run, row);
  CheckPlayerSquadron(run);
}

}  // namespace velmoran
