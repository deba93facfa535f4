#include "massage/squadron_strength.h"

#include <algorithm>

#include "massage/flight_size.h"
#include "massage/removal.h"
#include "state/numbering.h"
#include "state/player.h"
#include "state/rnd.h"
#include "state/roster.h"

namespace velmoran {

namespace {

// The pilots of the player's squadron, each with his plane.
struct Pool {
  Table<Long, PlayerPilots> PilotPool{};
  Table<Long, PlayerPilots> PlanePool{};
  Long poolCount = 0;  // pilots not yet assigned to a flight; goes down by a flight's whole size
  Long poolTop = -1;   // the next entry to hand out; goes down only by the slots that are filled
};

Pool GatherPilots(const RunState& run) {
  Pool pool;
  for (Long entry = 0; entry < run.SquadFlightCount; ++entry) {
    if (run.SquadFlights[entry] < 0) continue;
    const MissionRec& flight = run.Missions[run.SquadFlights[entry]];
    for (Long slot = 0; slot < Slots; ++slot) {
      if (flight.Pilots[slot] <= EmptySlot) continue;
      pool.PilotPool[pool.poolCount] = flight.Pilots[slot];
      pool.PlanePool[pool.poolCount] = flight.Planes[slot];
      ++pool.poolCount;
    }
  }
  pool.poolTop = pool.poolCount - 1;
  return pool;
}

// Fills the empty slots below size from the top of the pool, and empties those from size on.
void FillSlots(MissionRec& flight, Long size, Pool& pool) {
  for (Long slot = 0; slot < Slots; ++slot) {
    if (slot < size) {
      if (flight.Planes[slot] != EmptySlot) continue;
      flight.Pilots[slot] = pool.PilotPool[pool.poolTop];
      flight.Planes[slot] = pool.PlanePool[pool.poolTop];
      --pool.poolTop;  // Quirk 52: pilots who keep their slots stay in the pool.
      continue;
    }
    if (flight.Pilots[slot] == KeptPilotID && size > 0) {  // Quirk 54: he replaces the last pilot.
      flight.Pilots[size - 1] = KeptPilotID;
      flight.Planes[size - 1] = flight.Planes[slot];
      --pool.poolCount;
    }
    flight.Pilots[slot] = EmptySlot;
    flight.Planes[slot] = EmptySlot;
    flight.SlotExtra[slot] = EmptySlot;
  }
}

}  // namespace

void BalanceSquadrons(RunState& run) {
  Integer nation = NationZero;  // if a squadron isn't in the roster, that of the flight before
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    MissionRec& flight = run.Missions[row];
    if (InPlayerSquadron(run, flight)) continue;  // Quirk 49: removed flights count too.

    const Long count = Slots - static_cast<Long>(std::ranges::count(flight.Planes, EmptySlot));
    GetNation(run, Narrow(flight.SquadID), nation);
    const Long limit = nation == NationZero ? NationZeroMaxPlanes : SquadronMaxPlanes;
    Integer& granted = run.SquadPlanes[flight.SquadID];
    const Long room = limit - granted;
    if (granted + count <= limit) {
      granted = Narrow(granted + count);
    } else if (room <= run.MissionDefs[flight.MissionType].MinPlanes) {  // Quirk 50: room for MinPlanes is too little.
      RemoveFlight(run, row);
    } else {
      for (Long slot = std::max<Long>(room, 0); slot < Slots; ++slot) flight.Planes[slot] = EmptySlot;
      flight.NumAircraft = room;
      granted = Narrow(limit);
    }
  }
}

void AdjustPlayerSquadron(RunState& run) {
  Pool pool = GatherPilots(run);
  Integer nation = NationZero;  // if a squadron isn't in the roster, that of the flight before
  for (Long entry = 0; entry < run.SquadFlightCount; ++entry) {
    const Integer row = run.SquadFlights[entry];
    if (row < 0) continue;  // slot 0: no flight is the player's
    MissionRec& flight = run.Missions[row];
    const bool playersOwn = IsPlayerFlight(run, flight);

    Long size = DrawFlightSize(run, flight);
    GetNation(run, Narrow(flight.SquadID), nation);
    size = CapFlightSize(ScaleFlightSize(run, size, nation), nation);
    if (pool.poolCount < size) {
      if (pool.poolCount >= run.MissionDefs[flight.MissionType].MinPlanes || playersOwn) {
        size = pool.poolCount;
      } else {
        RemoveFlight(run, row);
      }
    }
    flight.NumAircraft = size;  // Quirk 51: not checked here.
    if (run.Removed[row] != InPlay) continue;

    pool.poolCount -= size;  // Quirk 53: not returned by a removal.
    FillSlots(flight, size, pool);
    // Quirk 44: inverted. Here a draw above RemoveOdds removes; in AdjustFlightSize, a draw below it.
    if (!playersOwn && Rnd(run) > run.Periods[run.WarPeriod].RemoveOdds) RemoveFlight(run, row);
  }
}

}  // namespace velmoran
