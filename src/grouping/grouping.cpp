#include "grouping/grouping.h"

#include <algorithm>
#include <span>

#include "state/numbering.h"
#include "state/player.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr Integer NotFound = -1;
constexpr Long MinWaypoints = 4;          // of a flight that can be joined
constexpr std::size_t CopiedWPBytes = 4;  // Quirk 84: of 5.

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
  std::copy_n(source.WPBytes.begin(), CopiedWPBytes, target.WPBytes.begin());
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
  for (Integer row = 0; row < run.LoadedCount; ++row) {
    if (run.Removed[row] != InPlay) continue;
    const Integer squad = Narrow(run.Missions[row].SquadID);
    const Integer group = isGroupedSquadron(run, squad);
    if (group == NotFound) continue;
    const Integer target = findAssociatedMissionIndex(run, squad, group, row);
    if (target == NotFound) continue;
    doMissionGrouping(run, row, target);
    run.GroupPairs[run.GroupPairCount++] = {.sourceIndex = row, .targetIndex = target};
  }
}

Integer isGroupedSquadron(const RunState& run, Integer squadID) {
  Integer found = NotFound;
  for (Integer group = 0; group < run.GroupCount; ++group) {
    if (Contains(run.SquadGroups[group], squadID)) found = group;  // Quirk 80: the last of several counts.
  }
  return found;
}

// Quirk 79: squadID is not used.
Integer findAssociatedMissionIndex(RunState& run, Integer /*squadID*/, Integer groupIndex, Integer sourceIndex) {
  const SquadGroupRec& group = run.SquadGroups[groupIndex];
  const MissionRec& source = run.Missions[sourceIndex];
  const double draw = Rnd(run);  // Quirk 78: drawn even if the source can't be joined.
  // Quirk 77: inverted, and always by the odds of war period 0.
  if (group.Kind < 0 || group.Kind >= GroupKinds || draw < run.Periods[0].GroupOdds[group.Kind]) return NotFound;
  if (source.WPCount < MinWaypoints || source.MissionType == TypeEscort) return NotFound;
  if (IsPaired(run, sourceIndex)) return NotFound;

  for (Integer row = 0; row < run.LoadedCount; ++row) {
    const MissionRec& candidate = run.Missions[row];
    if (row == sourceIndex || candidate.WPCount < MinWaypoints || run.Removed[row] != InPlay) continue;
    // Quirk 81: the player's flight may be a source but not a target.
    if (IsPlayerRow(run, row) || candidate.MissionType == TypeEscort) continue;
    if (Contains(group, Narrow(candidate.SquadID)) && !IsPaired(run, row)) return row;
  }
  return NotFound;
}

void doMissionGrouping(RunState& run, Integer sourceIndex, Integer targetIndex) {
  const MissionRec& source = run.Missions[sourceIndex];
  MissionRec& target = run.Missions[targetIndex];
  target.FlightType = source.FlightType;
  target.HeadLong16 = source.HeadLong16;
  target.MissionType = source.MissionType;
  target.HeadLong24 = source.HeadLong24;
  target.Target = source.Target;
  target.WPCount = source.WPCount;  // Quirk 83: which may bring unused waypoints of the target into use.
  Long number = 0;                  // of the waypoint, from 1
  for (const WaypointRec& waypoint : Route(source)) {
    ++number;
    // Quirk 82: the last but one keeps its position, the last doesn't.
    const bool keepsPosition = number == 1 || number == 2 || number == source.WPCount - 1;
    CopyWaypoint(waypoint, target.Waypoints[number - 1], keepsPosition);
  }
}

}  // namespace velmoran
