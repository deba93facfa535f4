#include "massage/formation.h"

#include "state/numbering.h"

namespace velmoran {

namespace {

constexpr Long MinEscortSize = 4;      // planes of a flight in FormationEscort
constexpr Long MaxLowAltSize = 4;      // planes of a flight in FormationLowAlt
constexpr Long MaxLowAltVicSize = 11;  // planes of a flight in FormationLowAltVic, unless of FlightTypeTwo

// Whether a flight attacks the target in its en-route formation.
bool IsEnrouteTarget(Long Target) {
  return Target == 4 || Target >= 6;  // Quirk 65: not 5.
}

}  // namespace

void AdjustFormations(RunState& run) {
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;  // Quirk 67: removed flights keep their formations.
    MissionRec& flight = run.Missions[row];
    for (WaypointRec& waypoint : Route(flight)) {
      getBestFormationForAction(waypoint.Action, flight.NumAircraft, flight.FlightType, flight.Target,
                                waypoint.Formation);
    }
  }
}

void getBestFormationForAction(Byte Action, Long NumAircraft, Long FlightType, Long Target, Byte& Formation) {
  if (NumAircraft == 1) {  // Quirk 63: for every action.
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
      Formation = NumAircraft >= MinEscortSize ? FormationEscort : FormationSmallEscort;
      return;
    case ActionAttackTarget:
      if (FlightType == FlightTypeTwo) {
        Formation = NumAircraft <= MaxLowAltSize ? FormationLowAlt : FormationLowAltVic;
      } else if (IsEnrouteTarget(Target)) {
        getBestFormationEnroute(NumAircraft, FlightType, Formation);
      } else {
        Formation = NumAircraft <= MaxLowAltVicSize ? FormationLowAltVic : FormationEchelonLeft;
      }
      return;
    case ActionTakeoff:
    case ActionLand:
      Formation = FormationInTrail;
      return;
    default:
      Formation = FormationEchelonLeft;  // Quirk 64: Recon and two more named actions too.
  }
}

void getBestFormationEnroute(Long NumAircraft, Long FlightType, Byte& Formation) {
  const bool typeTwo = FlightType == FlightTypeTwo;
  switch (NumAircraft) {
    case 1:
      Formation = FormationEchelonRight;
      return;
    case 2:
      Formation = typeTwo ? FormationEchelonRight : FormationEchelonLeft;
      return;
    case 3:
      Formation = FormationVee;
      return;
    case 4:
      Formation = typeTwo ? FormationDiamond : FormationEchelonLeft;
      return;
    case 5:
      Formation = FormationWedge;
      return;
    default:  // Quirk 66: 6 or more planes, but also 0 or fewer.
      if (typeTwo) {
        Formation = NumAircraft % 2 == 0 ? FormationDelta : FormationVic;
      } else {
        Formation = (std::int64_t{NumAircraft} + 1) % 3 == 0 ? FormationJavelin : FormationJavelin2;
      }
  }
}

}  // namespace velmoran
