// The command line of velmoran-odds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "state/types.h"

namespace velmoran {

inline constexpr std::string_view Help =
    "velmoran-odds [--massages N] [--csv FILE] [MISSION_FILE]\n"
    "\n"
    "Massages copies of a plan in memory and prints what comes out: first as the\n"
    "button Massage File will do it, then N times with other draws. Run it in\n"
    "Velmoran's folder. It never writes to the mission file.\n"
    "\n"
    "  --massages N  how many massages, 1 to 100000; 1000 unless given\n"
    "  --csv FILE    also writes one line for each massage to this file, which must\n"
    "                be new or such a list already\n"
    "  --help        prints this text\n"
    "  --version     prints the version\n"
    "\n"
    "Without MISSION_FILE (campgn??.mis) it asks for one.\n";

struct Arguments {
  bool help = false, version = false;  // if either is set, ignore the rest
  Long massages = 1000;                // 1 to 100000
  std::string csv, mission;            // paths; empty if not given
};

// Arguments that are refused. reason says why, in one line.
struct WrongArgument {
  std::string reason;
};

// Reads the arguments after the program's name. Throws WrongArgument for one that is unknown, lacks its value or has an
// invalid one, and for a second mission file.
Arguments ReadArguments(const std::vector<std::string>& given);

}  // namespace velmoran
