// The mission file campgn??.mis: a header of 17 bytes, then the flights one after another, each as long as its escort
// link and its waypoints make it. Little-endian and packed.
#pragma once

#include <vector>

#include "state/run_state.h"

namespace velmoran {

// Fills HeaderBytes, PlayerFlight, HeaderFlag, LoadedCount, MissionCount and Missions from the bytes of the file at
// MisPath. Throws Failure, with no field changed, when the count is outside 0 to 201 or a WPCount outside 0 to 31, or
// when the file ends before its last record. Bytes behind that record don't matter. OpenB_Click calls it.
void ReadMissions(RunState& run, const std::vector<Byte>& image);

// The whole new content of the mission file: the header with MissionCount, and the rows in play.
std::vector<Byte> ComposeMissionImage(const RunState& run);

}  // namespace velmoran
