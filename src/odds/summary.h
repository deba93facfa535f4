// The output of velmoran-odds: the summary that it prints and its CSV file, the same in every locale and system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "odds/simulate.h"

namespace velmoran {

// The whole output, lines of at most 80 columns that end in "\n". Means are rounded to the nearest tenth; percentiles
// go by nearest rank. Both are over the complete massages with a seed.
std::string Summary(const RunState& opened, const Massages& massages, const std::vector<std::string>& warnings);

// A heading, then one line for each massage in order; lines end in "\n". A value that the massage or the plan
// doesn't have is left empty.
std::string Csv(const RunState& opened, const Massages& massages);
inline constexpr std::string_view CsvStart = "seed,";  // how it begins

}  // namespace velmoran
