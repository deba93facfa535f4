// Massages of copies of an opened plan, and what comes out of each.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "state/run_state.h"

namespace velmoran {

inline constexpr Long OtherType = TypesFilled;  // where Outcome counts the mission types that have no name

// What came out of one massage. The fields from flights on are zero unless the massage was complete.
// Counts and sums are over the flights in play afterwards.
struct Outcome {
  enum class End { Complete, InvalidSize, ListOverflow };
  End end = End::Complete;
  Integer stoppedAt = -1;  // row of Missions at which the massage ended early
  Long messages = 0;       // message boxes that the tool would have shown; filled by the caller

  Long flights = 0;
  Long planes = 0;                        // sum of NumAircraft
  Table<Long, TypesFilled + 1> types{};   // flights by MissionType, OtherType last
  bool playerRemoved = false;             // the row that PlayerFlight named when the plan was opened
  Long playerType = 0, playerPlanes = 0;  // its MissionType and NumAircraft; zero if it was removed
  bool hasEmptyFlight = false;            // a flight that has no planes
  bool playerEscortLost = false;          // it is in play, had escorts, and none of them still escorts it
};

// All massages of one plan.
struct Massages {
  std::vector<Outcome> outcomes;      // the next massage of the tool, then those of the seeds 1, 2, ...
  std::map<std::string, Long> shown;  // each message, and in how many massages with a seed it was shown
};

// Restores what an earlier massage has changed in work, which must be a copy of opened, a plan that CheckPlan accepts;
// then massages it. Seed 0 goes on with the draws of opened.Random, as the tool itself would; any other seeds
// std::mt19937. Shows the messages of the passes. Allocates nothing unless the massage ends early.
Outcome MassageCopy(const RunState& opened, RunState& work, Long seed);

// The row that PlayerFlight names in a plan that is open but not massaged, or -1 if no such row was loaded.
Long PlayerRow(const RunState& opened);

// Whether a flight of a plan that is open but not massaged escorts the flight in the row.
bool Escorts(const MissionRec& flight, const RunState& opened, Long row);

}  // namespace velmoran
