// Files read and written whole: opened, moved in one piece and closed within one call.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "state/types.h"

namespace velmoran {

// All bytes of the file. Throws Failure when it can't be opened or read, isn't a regular file, or is larger than 256
// MiB, which no file of the simulation is.
std::vector<Byte> ReadFile(std::string_view path);

// Empties or creates the file, hands the bytes to the system in one write, and closes it. Throws Failure, which tells
// whether nothing was written (it couldn't be opened) or the file is incomplete now (writing or closing failed).
void WriteFile(std::string_view path, std::span<const Byte> bytes);

}  // namespace velmoran
