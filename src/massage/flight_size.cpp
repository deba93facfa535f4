#include "massage/flight_size.h"

#include <algorithm>
#include <string>

#include "massage/massage_stopped.h"
#include "platform/platform.h"
#include "state/failure.h"
#include "state/numbering.h"
#include "state/rnd.h"
#include "state/roster.h"

namespace velmoran {

namespace {

constexpr Long LeastScaledSize = 2;
constexpr Long NationZeroCap = 9;

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

bool InPlayerSquadron(const RunState& run, const MissionRec& flight) {
  return flight.SquadID == run.Missions[run.PlayerFlight].SquadID;
}

Long DrawFlightSize(RunState& run, const MissionRec& flight) {
  const MissionDefRec& def = run.MissionDefs[flight.MissionType];
  return RoundEven((def.MaxPlanes - def.MinPlanes) * Rnd(run) + def.MinPlanes);
}

Long ScaleFlightSize(const RunState& run, Long size, Integer nation) {
  return std::max(RoundEven(size * run.Periods[run.WarPeriod].SizeFactor[nation]), LeastScaledSize);
}

Long CapFlightSize(Long size, Integer nation) {
  return nation == 0 ? std::min(size, NationZeroCap) : size;
}

void AdjustFlightSize(RunState& run, Integer index) {
  MissionRec& flight = run.Missions[index];
  if (InPlayerSquadron(run, flight)) {
    if (flight.FlightID == run.PlayerFlight) {
      run.SquadFlights[0] = index;
    } else {
      run.SquadFlights[run.SquadFlightCount++] = index;
    }
    return;
  }

  const Integer type = AircraftOf(flight);
  const Integer aircraftClass = run.Aircraft[type].AircraftClass;
  const bool scaled = aircraftClass >= 0 && aircraftClass < ClassFirstTwoSeater;
  Integer nation = 0;
  GetNation(run, Narrow(flight.SquadID), nation);
  Long size = DrawFlightSize(run, flight);
  if (scaled) size = ScaleFlightSize(run, size, nation);
  size = CapFlightSize(size, nation);

  for (Long slot = 0; slot < Slots; ++slot) {
    if (slot >= size) {
      flight.Planes[slot] = EmptySlot;
    } else if (flight.Planes[slot] == EmptySlot) {
      flight.Planes[slot] = type;
    }
  }
  if (size < 1 || size > Slots) {
    throw MassageStopped{MassageStopped::Reason::InvalidSize, index,
                         "Invalid number of planes for flight" + std::to_string(index)};
  }
  flight.NumAircraft = size;

  const double draw = Rnd(run);  // made for every class
  if (scaled && draw < run.Periods[run.WarPeriod].RemoveOdds) RemoveFlight(run, index);
}

void RemoveFlight(RunState& run, Integer index) {
  const MissionRec& flight = run.Missions[index];
  run.Removed[index] = TakenOut;
  if (flight.FlightID == run.PlayerFlight) ShowMessage(PlayerFlightLost);
  if (flight.MissionType == TypeEscort) {
    Append(run.LostEscortFlights, run.LostEscortCount, flight.EscortedFlight, "LostEscortFlights", index);
    return;
  }
  for (Long k = 0; k < flight.WPCount; ++k) {
    if (flight.Waypoints[k].Action == ActionRendezvous) {
      Append(run.LostRendezvousFlights, run.LostRendezvousCount, flight.FlightID, "LostRendezvousFlights", index);
    }
  }
}

}  // namespace velmoran
