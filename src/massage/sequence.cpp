#include "massage/sequence.h"

#include "massage/mission_pass.h"

namespace velmoran {

void RunMassage(RunState& run) {
  for (Integer row = 0; row < run.LoadedCount; ++row) MassageMission(run, row);
}

}  // namespace velmoran
