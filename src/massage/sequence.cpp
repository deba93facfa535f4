#include "massage/sequence.h"


namespace velmoran {

void RunMassage(RunState& /*run*/) {
}

}  // namespace velmoran
