#include "massage/squadron_strength.h"

#include <algorithm>

#include "massage/flight_size.h"
#include "state/numbering.h"
#include "state/rnd.h"
#include "state/roster.h"

namespace velmoran {

namespace {

constexpr Long SquadronLimit = 12, NationZeroLimit = 9;

struct Pool {
  Table<Long, PlayerPilots> PilotPool{};
  Table<Long, PlayerPilots> PlanePool{};
  Long poolCount = 0;  // pilots not yet promised to a flight
  Long poolTop = -1;   // the next pair to hand out; goes down only by the slots that are really filled
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

// Fills the empty slots below size from the top of the pool and clears those from size on.
void ManFlight(MissionRec& flight, Long size, Pool& pool) {
  for (Long slot = 0; slot < Slots; ++slot) {
    if (slot < size) {
      if (flight.Planes[slot] != EmptySlot) continue;
      flight.Pilots[slot] = pool.PilotPool[pool.poolTop];
      flight.Planes[slot] = pool.PlanePool[pool.poolTop];
      --pool.poolTop;
      continue;
    }
    if (flight.Pilots[slot] == KeptPilotID && size > 0) {
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
  Integer nation = 0;  // a squadron outside the roster has that of the flight before
  for (Integer index = 0; index < run.LoadedCount; ++index) {
    MissionRec& flight = run.Missions[index];
    if (InPlayerSquadron(run, flight)) continue;

    const Long count = Slots - static_cast<Long>(std::ranges::count(flight.Planes, EmptySlot));
    GetNation(run, Narrow(flight.SquadID), nation);
    const Long limit = nation == 0 ? NationZeroLimit : SquadronLimit;
    Integer& granted = run.SquadPlanes[flight.SquadID];
    const Long room = limit - granted;
    if (granted + count <= limit) {
      granted = Narrow(granted + count);
    } else if (room <= run.MissionDefs[flight.MissionType].MinPlanes) {
      RemoveFlight(run, index);
    } else {
      for (Long slot = std::max<Long>(room, 0); slot < Slots; ++slot) flight.Planes[slot] = EmptySlot;
      flight.NumAircraft = room;
      granted = Narrow(limit);
    }
  }
}

void AdjustPlayerSquadron(RunState& run) {
  Pool pool = GatherPilots(run);
  Integer nation = 0;  // a squadron outside the roster has that of the flight before
  for (Long entry = 0; entry < run.SquadFlightCount; ++entry) {
    const Integer index = run.SquadFlights[entry];
    if (index < 0) continue;  // no flight is the player's
    MissionRec& flight = run.Missions[index];
    const bool playersOwn = flight.FlightID == run.PlayerFlight;

    Long size = DrawFlightSize(run, flight);
    GetNation(run, Narrow(flight.SquadID), nation);
    size = CapFlightSize(ScaleFlightSize(run, size, nation), nation);
    if (pool.poolCount < size) {
      if (pool.poolCount >= run.MissionDefs[flight.MissionType].MinPlanes || playersOwn) {
        size = pool.poolCount;
      } else {
        RemoveFlight(run, index);
      }
    }
    flight.NumAircraft = size;
    if (run.Removed[index] != InPlay) continue;

    pool.poolCount -= size;
    ManFlight(flight, size, pool);
    // Against the odds: a draw above RemoveOdds removes, where AdjustFlightSize removes below them.
    if (!playersOwn && Rnd(run) > run.Periods[run.WarPeriod].RemoveOdds) RemoveFlight(run, index);
  }
}

}  // namespace velmoran
