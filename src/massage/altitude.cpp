#include "massage/altitude.h"

#include <algorithm>

#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr Integer BandFloor = 2000;  // no band that mission and aircraft share begins lower
constexpr Integer BandDepth = 1000;  // of the band made where they share none
constexpr Integer LowestAltitude = 1500;

}  // namespace

void GetBaseAlt(RunState& run, Integer MissionType, Integer Aircraft, Integer& BaseAlt) {
  const MissionDefRec& def = run.MissionDefs[MissionType];
  const AircraftRec& aircraft = run.Aircraft[Aircraft];
  BaseAlt = 0;
  if (def.MaxAlt == 0) return;

  Integer max = std::min(def.MaxAlt, aircraft.MaxAlt);
  Integer min = std::max({def.MinAlt, aircraft.MinAlt, BandFloor});
  if (max <= min) {
    max = min;
    min = std::max(Narrow(min - BandDepth), LowestAltitude);
  }
  if (aircraft.AircraftClass == ClassHighFlyer && Rnd(run) < 0.8) min = Narrow(RoundEven((max - min) / 2.0 + min));
  if (aircraft.AircraftClass == ClassLowFlyer && Rnd(run) < 0.5) max = Narrow(RoundEven(max - (max - min) / 2.0));
  BaseAlt = Narrow(RoundEven((max - min) * Rnd(run) + min));
}

}  // namespace velmoran
