// The two setup files, which hold all numbers that steer the massage: items in a fixed order, with no keys.
//
// An item ends at a comma or at a line's end (CR LF, LF or CR); blanks and tabs in front of it are skipped, and so is
// a byte order mark at the start of the file. A text is bare or stands in double quotes; what follows a closing quote
// is dropped. A number is a decimal number; an empty item counts as "" or 0.
#pragma once

#include "state/run_state.h"

namespace velmoran {

// Fills Periods, ClassOdds, MissionDefs, TypeOdds, GroupCount and SquadGroups from "Velmoran.ini" in the current
// directory, then Aircraft from "\Velmoran.txt" in DataPath. Cells that the files don't reach stay as they are.
// Throws Failure, which names file, line and the item that was due, for a file that can't be read or ends before its
// last item, an item that is no number, a number that doesn't fit an Integer, and a group count above 101 or a group
// of more than 5 squadrons. Form_Load calls it.
void ReadSetup(RunState& run);

}  // namespace velmoran
