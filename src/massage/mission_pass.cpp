#include "massage/mission_pass.h"

#include "massage/altitude.h"
#include "massage/mission_type.h"
#include "massage/waypoint.h"
#include "state/altitude_bytes.h"
#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr double MinLoiter = 8, LoiterRange = 10;  // ActionParam of a loiter, no unit

}  // namespace

void MassageMission(RunState& run, Integer index) {
  MissionRec& flight = run.Missions[index];
  Integer MissionType = Narrow(flight.MissionType);
  // Quirk 34: row 0 for a flight of no planes, even if slot 0 has one.
  const Integer Aircraft = flight.NumAircraft >= 1 ? AircraftOf(flight) : Integer{0};

  Integer ShiftFlag;
  AlterMissionType(run, index, Aircraft, Narrow(flight.SquadID), ShiftFlag, MissionType);
  Integer BaseAlt;
  GetBaseAlt(run, MissionType, Aircraft, BaseAlt);
  Byte missionAction;
  GetActionByMission(MissionType, missionAction);

  Long number = 0;  // of the waypoint, from 1
  for (WaypointRec& waypoint : Route(flight)) {
    ++number;
    const bool inner = number != 1 && number != 2 && number != flight.WPCount;  // Quirk 39: but any Action may change.
    const bool withEscort = waypoint.Action == ActionEscort || waypoint.Action == ActionRendezvous;
    if (BaseAlt > 0 && inner && !withEscort) SetWPAltitude(waypoint.AltBytes, BaseAlt);
    // Quirk 40: a waypoint with an escort is moved too.
    if (ShiftFlag == Shifted && inner) ShiftWPPosition(run, waypoint.Lon, waypoint.Lat);

    Byte Action = missionAction;
    if (Action == NoAction) continue;
    AlterWPAction(waypoint.Action, Action);
    if (Action == ActionLoiter) waypoint.ActionParam = RoundEven(Rnd(run) * LoiterRange + MinLoiter);
  }
}

}  // namespace velmoran
