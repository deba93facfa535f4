// The text report of all flights in play, as the RunState holds them at that moment.
#pragma once

#include <string>

#include "state/run_state.h"

namespace velmoran {

// The whole report: lines of single bytes that end in CR LF. Any RunState that Open or the massage leaves can be
// reported; aircraft outside the table are "Unknown", a SquadID outside 0 to 200 counts for no squadron, and at most
// the 12 slots of a flight are listed. Draws nothing. ReportB_Click calls it.
std::string ComposeReport(const RunState& run);

}  // namespace velmoran
