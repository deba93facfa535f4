#include "massage/formation.h"

#include "state/numbering.h"

namespace velmoran {

void AdjustFormations(RunState& run) {
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    MissionRec& flight = run.Missions[row];
    for (Long k = 0; k < flight.WPCount; ++k) {
      WaypointRec& waypoint = flight.Waypoints[k];
      getBestFormationForAction(waypoint.Action, flight.NumAircraft, flight.FlightType, flight.Target,
                                waypoint.Formation);
    }
  }
}

void getBestFormationForAction(Byte Action, Long NumAircraft, Long FlightType, Long Target, Byte& Formation) {
  if (NumAircraft == 1) {
    Formation = FormationEchelonRight;
    return;
  }
  switch (Action) {
    case ActionIngress:
    case ActionEgress:
    case ActionPatrol:
    case ActionDefendBalloon:
    case ActionPatrolFront:
    case ActionLoiter:
    case ActionRendezvous:
    case ActionNavigate:
      getBestFormationEnroute(NumAircraft, FlightType, Formation);
      return;
    case ActionEscort:
      Formation = NumAircraft >= 4 ? FormationEscort : FormationSmallEscort;
      return;
    case ActionAttackTarget:
      if (FlightType == FlightTypeApart) {
        Formation = NumAircraft <= 4 ? FormationLowAlt : FormationLowAltVic;
      } else if (Target == 4 || Target >= 6) {
        getBestFormationEnroute(NumAircraft, FlightType, Formation);
      } else {
        Formation = NumAircraft <= 11 ? FormationLowAltVic : FormationEchelonLeft;
      }
      return;
    case ActionTakeoff:
    case ActionLand:
      Formation = FormationInTrail;
      return;
    default:
      Formation = FormationEchelonLeft;
  }
}

void getBestFormationEnroute(Long NumAircraft, Long FlightType, Byte& Formation) {
  const bool apart = FlightType == FlightTypeApart;
  switch (NumAircraft) {
    case 1:
      Formation = FormationEchelonRight;
      return;
    case 2:
      Formation = apart ? FormationEchelonRight : FormationEchelonLeft;
      return;
    case 3:
      Formation = FormationVee;
      return;
    case 4:
      Formation = apart ? FormationDiamond : FormationEchelonLeft;
      return;
    case 5:
      Formation = FormationWedge;
      return;
    default:
      if (apart) {
        Formation = NumAircraft % 2 == 0 ? FormationDelta : FormationVic;
      } else {
        Formation = (std::int64_t{NumAircraft} + 1) % 3 == 0 ? FormationJavelin : FormationJavelin2;
      }
  }
}

}  // namespace velmoran
