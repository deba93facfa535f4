// The end of a massage that can't be finished. A pass throws it; MassageB_Click shows it and ends the program.
#pragma once

#include <string>

#include "state/types.h"

namespace velmoran {

// The flights are then altered in part: the RunState must not be used any further. No file has changed.
struct MassageStopped {
  enum class Reason {
    InvalidSize,   // AdjustFlightSize drew a size outside 1 to 12
    ListOverflow,  // LostEscortFlights or LostRendezvousFlights is full
  };
  Reason reason;
  Integer row;          // of the flight in Missions, from 0, that was being sized or removed
  std::string message;  // the complete text of the message box
};

}  // namespace velmoran
