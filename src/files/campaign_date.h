// The campaign file campgn??.dat beside the mission file: how far the war has gone, and two control words.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// First day of the war periods 1 to 6, counted from CampaignStart.
inline constexpr Table<Long, 6> PeriodStarts{366, 549, 732, 921, 1104, 1287};

// Fills CampaignDate, TypeOddsGate, ShiftAxis and, from the days since CampaignStart, WarPeriod from the file at
// DatPath. Throws Failure, with no field changed, when the file can't be read or ends before its second control word,
// or when one of its two counts is negative or so large that positions don't fit an Integer. OpenB_Click calls it.
void ReadCampaignDate(RunState& run);

}  // namespace velmoran
