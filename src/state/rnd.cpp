#include "state/rnd.h"

namespace velmoran {

void SeedRnd(RunState& run) {
  // Quirk 9: always the same seed, -1 in 32 bits.
  run.Random.seed(4294967295U);
}

double Rnd(RunState& run) {
  return static_cast<double>(run.Random() >> 8) * 0x1p-24;
}

}  // namespace velmoran
