#include "massage/altitude.h"

#include <algorithm>

#include "files/bytes.h"
#include "state/numbering.h"
#include "state/rnd.h"

namespace velmoran {

namespace {

constexpr Integer BandFloor = 2000;  // no band that mission and aircraft share begins lower
constexpr Integer BandDepth = 1000;  // of the band made where they share none
constexpr Integer LowestAltitude = 1500;

// Altitude units of the low nibble and the high nibble of b0, and of b1.
constexpr Long LowUnit = 32, HighUnit = 512, ByteUnit = 8192;

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

void SetWPAltitude(Long& AltBytes, Integer altitude) {
  Table<Byte, 4> bytes;
  LongtoByte(AltBytes, bytes);
  bytes[1] = static_cast<Byte>(altitude / ByteUnit);
  bytes[0] = static_cast<Byte>(altitude % ByteUnit / HighUnit * 16 + altitude % HighUnit / LowUnit);
  ByteToLong(AltBytes, bytes);
}

Long GetWPAltitude(Long AltBytes) {
  Table<Byte, 4> bytes;
  LongtoByte(AltBytes, bytes);
  return bytes[1] * ByteUnit + bytes[0] / 16 * HighUnit + bytes[0] % 16 * LowUnit;
}

void LongtoByte(Long LongVal, Table<Byte, 4>& TargetData) {
  PutLong(TargetData.data(), LongVal);
}

void ByteToLong(Long& LongVal, const Table<Byte, 4>& SourceData) {
  LongVal = LongAt(SourceData.data());
}

}  // namespace velmoran
