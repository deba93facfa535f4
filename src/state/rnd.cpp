#include "state/rnd.h"

namespace velmoran {

void SeedRnd(RunState& run) {
  run.Random.seed(4294967295U);  // -1, in 32 bits
}

double Rnd(RunState& run) {
  return static_cast<double>(run.Random() >> 8) * 0x1p-24;
}

}  // namespace velmoran
