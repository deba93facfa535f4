// What a pass throws if the massage can't be finished. MassageB_Click shows the message and ends the program.
#pragma once

#include <string>

#include "state/types.h"

namespace velmoran {

// The flights are then altered in part: the RunState must not be used before they are restored. No file has changed.
struct MassageStopped {
  enum class Reason {
    InvalidSize,   // AdjustFlightSize drew a size outside 1 to 12
    ListOverflow,  // LostEscortFlights or LostRendezvousFlights is full
  };
  Reason reason;
  Integer row;          // of Missions, from 0: the flight that was being sized or removed
  std::string message;  // the complete text of the message box
};

}  // namespace velmoran
