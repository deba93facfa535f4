// The six events of the form. Each reports its failures in a message box, running out of memory included, and leaves
// no file open. A front end calls Form_Load once, before the form is shown, and then the event of a button only while
// that button is enabled.
#pragma once

#include <string_view>

#include "platform/platform.h"
#include "state/run_state.h"

namespace velmoran {

inline constexpr std::string_view NotEnoughMemoryToStart =
    "Error # 7 Not enough memory to start. Close other programs and try again.";

// Starts a run: seeds Rnd, sets the initial values, WorkDir and DataPath, reads the setup files and the roster,
// disables all buttons but OpenB and ExitB, and shows the first hint. A failure of those files ends the program after
// its message.
void Form_Load(RunState& run);

// Asks for the mission file, opens it, reads the campaign file beside it and then the mission file, and keeps its path
// in MissionFile. If one of them can't be used, no flight and no count changes, and Open can be pressed again; after
// Cancel nothing changes but MisPath.
void OpenB_Click(RunState& run);

// Whether the passes can massage the flights that Open has read; if not, shows why. Changes nothing.
bool AcceptPlan(const RunState& run);

// Massages the flights. A plan that the passes can't work on is refused with nothing changed. A massage that can't be
// finished ends the program after its message.
void MassageB_Click(RunState& run);

// Asks for a name and writes the report there; after Cancel, under the name that was offered. Changes nothing else.
void ReportB_Click(RunState& run);

// Writes the flights in play to MissionFile, and waits until they are on the disk. If that fails, nothing but
// WriteFailed changes, and Write can be pressed again.
void WriteB_Click(RunState& run);

// Ends the program without saving, with the exit status of a failure if the last Write failed.
[[noreturn]] void ExitB_Click(const RunState& run);

// Calls the event of the button.
void Press(RunState& run, Button button);

}  // namespace velmoran
