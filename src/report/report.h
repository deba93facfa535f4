// The text report of all flights in play, from the current RunState.
#pragma once

#include <string>

#include "state/run_state.h"

namespace velmoran {

// The whole report: lines of single bytes that end in CR LF. Works on any RunState that Open or the massage leaves:
// aircraft outside the table are "Unknown", a SquadID outside 0 to 200 counts for no squadron, and no more than the 12
// slots of a flight are listed. No draws. ReportB_Click calls it.
std::string ComposeReport(const RunState& run);

}  // namespace velmoran
