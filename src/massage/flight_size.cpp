#include "massage/flight_size.h"

#include <algorithm>
#include <string>

#include "massage/massage_stopped.h"
#include "massage/removal.h"
#include "state/numbering.h"
#include "state/player.h"
#include "state/rnd.h"
#include "state/roster.h"

namespace velmoran {

namespace {

constexpr Long MinScaledSize = 2;

void AddToSquadFlights(RunState& run, Integer row) {
  if (IsPlayerFlight(run, run.Missions[row])) {
    run.SquadFlights[0] = row;
  } else {
    run.SquadFlights[run.SquadFlightCount++] = row;
  }
}

// Fills the empty slots below size with the aircraft, and empties those from size on.
void FitPlanes(MissionRec& flight, Long size, Integer aircraft) {
  for (Long slot = 0; slot < Slots; ++slot) {
    if (slot >= size) {
      flight.Planes[slot] = EmptySlot;  // Quirk 48: the pilots stay.
    } else if (flight.Planes[slot] == EmptySlot) {
      flight.Planes[slot] = aircraft;
    }
  }
}

}  // namespace

Long DrawFlightSize(RunState& run, const MissionRec& flight) {
  const MissionDefRec& def = run.MissionDefs[flight.MissionType];
  // Quirk 37: rounded to the nearest, so both ends are half as likely.
  return RoundEven((def.MaxPlanes - def.MinPlanes) * Rnd(run) + def.MinPlanes);
}

Long ScaleFlightSize(const RunState& run, Long size, Integer nation) {
  return std::max(RoundEven(size * run.Periods[run.WarPeriod].SizeFactor[nation]), MinScaledSize);
}

Long CapFlightSize(Long size, Integer nation) {
  // Quirk 47: for every class, even if MinPlanes is more.
  return nation == NationZero ? std::min(size, NationZeroMaxPlanes) : size;
}

void AdjustFlightSize(RunState& run, Integer index) {
  MissionRec& flight = run.Missions[index];
  if (InPlayerSquadron(run, flight)) {
    AddToSquadFlights(run, index);
    return;
  }

  const Integer aircraft = AircraftOf(flight);
  const bool scaled = IsScaledClass(run.Aircraft[aircraft].AircraftClass);
  Integer nation = NationZero;
  GetNation(run, Narrow(flight.SquadID), nation);
  Long size = DrawFlightSize(run, flight);
  if (scaled) size = ScaleFlightSize(run, size, nation);  // Quirk 46: only classes 0 to 2.
  size = CapFlightSize(size, nation);

  FitPlanes(flight, size, aircraft);
  if (size < 1 || size > Slots) {
    throw MassageStopped{MassageStopped::Reason::InvalidSize, index,
                         // Quirk 4: no space before the number, which is the row.
                         "Invalid number of planes for flight" + std::to_string(index)};
  }
  flight.NumAircraft = size;

  const double draw = Rnd(run);  // Quirk 45: drawn for every class.
  if (scaled && draw < run.Periods[run.WarPeriod].RemoveOdds) RemoveFlight(run, index);
}

}  // namespace velmoran
