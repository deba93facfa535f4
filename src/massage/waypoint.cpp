#include "massage/waypoint.h"

#include <algorithm>

#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr double LeastShift = 200000, ShiftRange = 300000;
constexpr Long MapEdge = 4190000;

}  // namespace

void ShiftWPPosition(RunState& run, Long& Lon, Long& Lat) {
  if (run.ShiftAxis < 0 || run.ShiftAxis > 3) return;
  Long& moved = run.ShiftAxis % 2 == 1 ? Lon : Lat;
  moved = std::min(RoundEven(Rnd(run) * ShiftRange + LeastShift + moved), MapEdge);
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
    NewAction = act;
  }
}

}  // namespace velmoran
