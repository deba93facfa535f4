// The six events of the form, the only way into the logic. Each runs to its end, shows what goes wrong in a message
// box, and leaves no file open. A front end calls Form_Load once, before the form is shown, and then the event of a
// button only while that button is enabled.
#pragma once

#include "platform/platform.h"
#include "state/run_state.h"

namespace velmoran {

// Starts a run: seeds Rnd, sets the initial values, WorkDir and DataPath, reads the setup files and the roster,
// disables all buttons but OpenB and ExitB, and shows the first hint. A failure of those files ends the program after
// its message.
void Form_Load(RunState& run);

// Asks for the mission file and reads the campaign file beside it, then the mission file. Where one of them can't be
// used, no flight and no count changes, and Open can be pressed again; after Cancel nothing changes but MisPath.
void OpenB_Click(RunState& run);

// Massages the flights. A plan that the passes can't work on is refused with nothing changed. A massage that can't be
// finished ends the program after its message.
void MassageB_Click(RunState& run);

// Asks for a name and writes the report there; after Cancel, under the name that was offered. Changes nothing else.
void ReportB_Click(RunState& run);

// Writes the flights in play back to MisPath. Where that fails the RunState is as before and Write can be pressed
// again.
void WriteB_Click(RunState& run);

// Ends the program; nothing is saved.
[[noreturn]] void ExitB_Click();

// Does the event of the button.
void Press(RunState& run, Button button);

}  // namespace velmoran
