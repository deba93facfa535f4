// The flights of the made-up campaign: who flies, from where, and along which route.
#pragma once

#include <cstdint>
#include <random>

#include "state/run_state.h"

namespace sample {

// A fixed sequence of numbers, the same on every machine.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : source_(seed) {}
  // 0 to count - 1.
  velmoran::Long Below(velmoran::Long count) {
    return static_cast<velmoran::Long>(source_() % static_cast<std::uint32_t>(count));
  }
  velmoran::Long Between(velmoran::Long least, velmoran::Long most) { return least + Below(most - least + 1); }

 private:
  std::mt19937 source_;
};

// The nation of a squadron of the sample's roster, 0 to 4.
velmoran::Integer NationOf(velmoran::Long squadID);

// An ordinary day: flights of 25 squadrons, with escorts, and three flights of the player's squadron.
void PlanOrdinaryDay(velmoran::RunState& run);

// The largest plan that fits in a mission file: 201 flights of 31 waypoints.
void PlanLargestDay(velmoran::RunState& run);

}  // namespace sample
