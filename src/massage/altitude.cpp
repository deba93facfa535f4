#include "massage/altitude.h"

#include <algorithm>

#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr double HighFlyerUpperOdds = 0.8;  // of drawing from the upper half of the range
constexpr double LowFlyerLowerOdds = 0.5;   // of drawing from the lower half

}  // namespace

void GetBaseAlt(RunState& run, Integer MissionType, Integer Aircraft, Integer& BaseAlt) {
  const MissionDefRec& def = run.MissionDefs[MissionType];
  const AircraftRec& aircraft = run.Aircraft[Aircraft];
  BaseAlt = 0;
  if (def.MaxAlt == 0) return;  // Quirk 35: 0 means no change here, but is a limit in a row of Aircraft.

  Integer max = std::min(def.MaxAlt, aircraft.MaxAlt);
  Integer min = std::max({def.MinAlt, aircraft.MinAlt, RangeFloor});
  if (max <= min) {
    max = min;
    // Quirk 36: below what the mission or the aircraft allows.
    min = std::max(Narrow(min - SubstituteDepth), SubstituteFloor);
  }
  const double half = (max - min) / 2.0;
  if (aircraft.AircraftClass == ClassHighFlyer && Rnd(run) < HighFlyerUpperOdds) min = Narrow(RoundEven(half + min));
  if (aircraft.AircraftClass == ClassLowFlyer && Rnd(run) < LowFlyerLowerOdds) max = Narrow(RoundEven(max - half));
  BaseAlt = Narrow(RoundEven((max - min) * Rnd(run) + min));
}

}  // namespace velmoran
