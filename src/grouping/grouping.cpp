#include "grouping/grouping.h"

#include <algorithm>
#include <span>

#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr Long LeastWaypoints = 4;  // of a flight that can be joined

bool Contains(const SquadGroupRec& group, Integer squadID) {
  return std::ranges::count(std::span(group.Squads).first(static_cast<std::size_t>(std::max<Long>(group.Count, 0))),
                            squadID) > 0;
}

bool IsPaired(const RunState& run, Integer index) {
  const auto pairs = std::span(run.GroupPairs).first(static_cast<std::size_t>(run.GroupPairCount));
  return std::ranges::any_of(
      pairs, [index](const GroupPairRec& pair) { return pair.sourceIndex == index || pair.targetIndex == index; });
}

void CopyWaypoint(const WaypointRec& source, WaypointRec& target, bool keepsPosition) {
  target.WPLong0 = source.WPLong0;
  std::copy_n(source.WPBytes.begin(), 4, target.WPBytes.begin());
  target.WPByte33 = source.WPByte33;
  target.WPByte35 = source.WPByte35;
  target.WPLong36 = source.WPLong36;
  target.Action = source.Action;
  target.ActionParam = source.ActionParam;
  if (keepsPosition) {
    target.Formation = source.Formation;
    target.WPByte34 = source.WPByte34;
  } else {
    target.AltBytes = source.AltBytes;
    target.Lon = source.Lon;
    target.Lat = source.Lat;
    target.WPLong20 = source.WPLong20;
  }
}

}  // namespace

void CombineFormations(RunState& run) {
  for (Integer i = 0; i < run.LoadedCount; ++i) {
    if (run.Removed[i] != InPlay) continue;
    const Integer squad = Narrow(run.Missions[i].SquadID);
    const Integer group = isGroupedSquadron(run, squad);
    if (group == -1) continue;
    const Integer target = findAssociatedMissionIndex(run, squad, group, i);
    if (target == -1) continue;
    doMissionGrouping(run, i, target);
    run.GroupPairs[run.GroupPairCount++] = {.sourceIndex = i, .targetIndex = target};
  }
}

Integer isGroupedSquadron(const RunState& run, Integer squadID) {
  Integer found = -1;
  for (Integer group = 0; group < run.GroupCount; ++group) {
    if (Contains(run.SquadGroups[group], squadID)) found = group;
  }
  return found;
}

Integer findAssociatedMissionIndex(RunState& run, Integer /*squadID*/, Integer groupIndex, Integer sourceIndex) {
  const SquadGroupRec& group = run.SquadGroups[groupIndex];
  const MissionRec& source = run.Missions[sourceIndex];
  const double draw = Rnd(run);  // made before the source is looked at
  if (group.Kind < 0 || group.Kind >= GroupKinds || draw < run.Periods[0].GroupOdds[group.Kind]) return -1;
  if (source.WPCount < LeastWaypoints || source.MissionType == TypeEscort) return -1;
  if (IsPaired(run, sourceIndex)) return -1;

  for (Integer c = 0; c < run.LoadedCount; ++c) {
    const MissionRec& candidate = run.Missions[c];
    if (c == sourceIndex || candidate.WPCount < LeastWaypoints || run.Removed[c] != InPlay) continue;
    if (c == run.PlayerFlight || candidate.MissionType == TypeEscort) continue;
    if (Contains(group, Narrow(candidate.SquadID)) && !IsPaired(run, c)) return c;
  }
  return -1;
}

void doMissionGrouping(RunState& run, Integer sourceIndex, Integer targetIndex) {
  const MissionRec& source = run.Missions[sourceIndex];
  MissionRec& target = run.Missions[targetIndex];
  target.FlightType = source.FlightType;
  target.HeadLong16 = source.HeadLong16;
  target.MissionType = source.MissionType;
  target.HeadLong24 = source.HeadLong24;
  target.Target = source.Target;
  target.WPCount = source.WPCount;
  for (Long k = 1; k <= source.WPCount; ++k) {
    const bool keepsPosition = k == 1 || k == 2 || k == source.WPCount - 1;
    CopyWaypoint(source.Waypoints[k - 1], target.Waypoints[k - 1], keepsPosition);
  }
}

}  // namespace velmoran
