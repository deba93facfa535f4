// Finds likely mistakes in the setup files that can affect an opened plan.
#pragma once

#include <string>
#include <vector>

#include "odds/simulate.h"

namespace velmoran {

// The warnings, the most serious first, each without a line break: the item as the tool's messages name it, its value,
// what it leads to in this plan, and what to change. opened is a plan that CheckPlan accepts, massages those of it.
// An item that can affect no flight of the plan gives none.
std::vector<std::string> Warnings(const RunState& opened, const Massages& massages);

}  // namespace velmoran
