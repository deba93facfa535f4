// Reads the two setup files, which hold the odds and limits of the massage: items in a fixed order, with no keys.
//
// An item ends at a comma or a line end (CR LF, LF or CR). Spaces and tabs before an item are skipped, as is a byte
// order mark at the start of the file. A text may be in double quotes; anything from the closing quote to the end of
// the item is dropped. A number is decimal, without an exponent. An empty item counts as "" or 0.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Fills Periods, ClassOdds, MissionDefs, TypeOdds, GroupCount and SquadGroups from "Velmoran.ini" in the current
// directory, then Aircraft from "\Velmoran.txt" in DataPath. Entries that the files have no value for don't change.
// Throws Failure, which names file, line and item, for a file that can't be read or ends before its last item, an item
// that is not a number, a number that doesn't fit in an Integer, more than 101 groups, and a group of more than 5
// squadrons. Form_Load calls it.
void ReadSetup(RunState& run);

}  // namespace velmoran
