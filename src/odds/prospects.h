// What a massage can make of the flights of a plan, over all possible draws.
#pragma once

#include <bitset>
#include <vector>

#include "state/run_state.h"

namespace velmoran {

class TypeSet : std::bitset<TypeRows> {
 public:
  bool Has(Long type) const { return test(static_cast<std::size_t>(type)); }
  void Add(Long type) { set(static_cast<std::size_t>(type)); }
};

struct Prospect {
  const MissionRec* flight = nullptr;
  Integer row = 0;  // of Missions
  Integer nation = 0;
  Integer aircraft = 0;  // row of Aircraft that counts for its mission type and altitude
  Long classRow = -1;    // of ClassOdds that redraws its mission type, or -1
  bool inPlayerSquadron = false;
  bool isPlayerFlight = false;
  bool scaled = false;         // by class: SizeFactor and RemoveOdds count outside the player's squadron
  bool keepsAltitudes = true;  // has no waypoint that gets an altitude
  TypeSet drawn;               // mission types before some become offensive patrols
  TypeSet flown;               // after that: for altitudes
  TypeSet stored;              // in its row in the end: for sizes
};

// One for each row of Missions. run must be a plan that CheckPlan accepts and that isn't massaged.
std::vector<Prospect> Foresee(const RunState& run);

// The most planes that AdjustFlightSize can give the flight as a mission of this type, before rounding; 0 if it can't
// be one, or if the flight's nation or squadron keeps its size within 12.
double LargestSize(const RunState& run, const Prospect& prospect, Long type);

inline constexpr Long AnyType = -1;
// Whether GetBaseAlt can draw an altitude for the flight as a mission of this type, or of any type for AnyType.
bool GetsAltitude(const RunState& run, const Prospect& prospect, Long type);

}  // namespace velmoran
