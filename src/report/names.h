// Names of the numbers in state/numbering.h, as the report prints them.
#pragma once

#include <string_view>

#include "state/types.h"

namespace velmoran {

// Each sets the name of the number, or "Unknown" for a number that has none; the names live as long as the program.
void GetMissionName(Long MissionType, std::string_view& MissionName);
void GetWPAction(Byte Action, std::string_view& ActionName);
void GetWPFormation(Byte Formation, std::string_view& FormationName);

}  // namespace velmoran
