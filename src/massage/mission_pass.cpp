#include "massage/mission_pass.h"

#include "massage/altitude.h"
#include "massage/mission_type.h"
#include "massage/waypoint.h"
#include "state/altitude_bytes.h"
#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

void MassageMission(RunState& run, Integer index) {
  MissionRec& flight = run.Missions[index];
  Integer MissionType = Narrow(flight.MissionType);
  const Integer Aircraft = flight.NumAircraft >= 1 ? AircraftOf(flight) : Integer{0};

  Integer ShiftFlag;
  AlterMissionType(run, index, Aircraft, Narrow(flight.SquadID), ShiftFlag, MissionType);
  Integer BaseAlt;
  GetBaseAlt(run, MissionType, Aircraft, BaseAlt);

  for (Long k = 1; k <= flight.WPCount; ++k) {
    WaypointRec& waypoint = flight.Waypoints[k - 1];
    const bool inner = k != 1 && k != 2 && k != flight.WPCount;
    const bool withEscort = waypoint.Action == ActionEscort || waypoint.Action == ActionRendezvous;
    if (BaseAlt > 0 && inner && !withEscort) SetWPAltitude(waypoint.AltBytes, BaseAlt);
    if (ShiftFlag == -1 && inner) ShiftWPPosition(run, waypoint.Lon, waypoint.Lat);

    Byte Action;
    GetActionByMission(MissionType, Action);
    if (Action == NoAction) continue;
    AlterWPAction(waypoint.Action, Action);
    if (Action == ActionLoiter) waypoint.ActionParam = RoundEven(Rnd(run) * 10 + 8);
  }
}

}  // namespace velmoran
