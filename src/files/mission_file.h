// The mission file campgn??.mis: a header of 17 bytes, then a record for each flight, whose length depends on its
// escort link and its waypoints. Little-endian and packed.
#pragma once

#include <string_view>
#include <vector>

#include "state/run_state.h"

namespace velmoran {

// Fills HeaderBytes, PlayerFlight, HeaderFlag, LoadedCount, MissionCount and Missions from the bytes of the mission
// file; file is its name for messages. Bytes after the last record are ignored. Throws Failure, with no field changed,
// if the count is outside 0 to 201, a WPCount is outside 0 to 31, or the file ends before its last record.
void ReadMissions(RunState& run, const std::vector<Byte>& image, std::string_view file);

// The whole new content of the mission file: the header with MissionCount, and the rows in play.
std::vector<Byte> ComposeMissionImage(const RunState& run);

}  // namespace velmoran
