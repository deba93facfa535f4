// The altitude in a waypoint's AltBytes. Altitudes are numbers of the simulation and have no unit.
#pragma once

#include "state/little_endian.h"
#include "state/types.h"

namespace velmoran {

// Split any Long into its bytes, least significant first, and join them again.
constexpr void LongtoByte(Long LongVal, Table<Byte, 4>& TargetData) {
  PutLong(TargetData.data(), LongVal);
}
constexpr void ByteToLong(Long& LongVal, const Table<Byte, 4>& SourceData) {
  LongVal = LongAt(SourceData.data());
}

// The altitude that 1 means in the low nibble of byte 0, in its high nibble, and in byte 1.
inline constexpr Long LowUnit = 32, HighUnit = 512, ByteUnit = 8192;
inline constexpr Long Nibble = 16;

// Stores the altitude (0 to 32767), rounded down to a multiple of 32, in the low 16 bits of AltBytes, in units of 32.
// Leaves the high 16 bits unchanged.
constexpr void SetWPAltitude(Long& AltBytes, Integer altitude) {
  Table<Byte, 4> bytes{};
  LongtoByte(AltBytes, bytes);
  bytes[1] = static_cast<Byte>(altitude / ByteUnit);
  // Quirk 38: rounded down to a multiple of 32.
  bytes[0] = static_cast<Byte>(altitude % ByteUnit / HighUnit * Nibble + altitude % HighUnit / LowUnit);
  ByteToLong(AltBytes, bytes);
}

// The altitude in AltBytes, for any AltBytes: 0 to 2097120 in steps of 32.
constexpr Long GetWPAltitude(Long AltBytes) {
  Table<Byte, 4> bytes{};
  LongtoByte(AltBytes, bytes);
  return bytes[1] * ByteUnit + bytes[0] / Nibble * HighUnit + bytes[0] % Nibble * LowUnit;
}

}  // namespace velmoran
