// Which folders a program for Windows loads DLLs from.
#pragma once

namespace velmoran {

// From now on, DLLs that are loaded by name alone come from the system's own folder, never from the program's or the
// current one. Must be called first in main. Does nothing on a Windows too old for it (7 without its update KB2533623).
void LoadDllsFromSystemOnly();

}  // namespace velmoran
