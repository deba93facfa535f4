#include "massage/waypoint.h"

#include <algorithm>

#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr double MinShift = 200000, ShiftRange = 300000;
constexpr Long MapEdge = 4190000;

}  // namespace

void ShiftWPPosition(RunState& run, Long& Lon, Long& Lat) {
  Long* moved;
  switch (run.ShiftAxis) {
    case 0:
    case 2:
      moved = &Lat;
      break;
    case 1:
    case 3:
      moved = &Lon;
      break;
    default:
      return;
  }
  // Quirk 41: always upwards, and never beyond the edge.
  *moved = std::min(RoundEven(Rnd(run) * ShiftRange + MinShift + *moved), MapEdge);
}

void GetActionByMission(Integer MissionType, Byte& Action) {
  switch (MissionType) {
    case TypeBomb:
      Action = ActionAttackTarget;
      return;
    case TypeRecon:
      Action = ActionRecon;
      return;
    case TypeSpotting:
    case TypeOffensivePatrol:
      Action = ActionLoiter;
      return;
    default:
      Action = NoAction;
  }
}

void AlterWPAction(Byte& act, Byte& NewAction) {
  const bool replaceable = (act >= ActionAttackTarget && act <= ActionLoiter) || act == ActionRecon;
  if (replaceable) {
    act = NewAction;
  } else {
    NewAction = act;  // Quirk 42: the caller goes on with the waypoint's own action.
  }
}

}  // namespace velmoran
