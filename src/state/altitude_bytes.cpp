#include "state/altitude_bytes.h"

#include "state/little_endian.h"

namespace velmoran {

namespace {

// One unit of the low nibble of byte 0, of its high nibble, and of byte 1, as altitudes.
constexpr Long LowUnit = 32, HighUnit = 512, ByteUnit = 8192;
constexpr Long Nibble = 16;

}  // namespace

void SetWPAltitude(Long& AltBytes, Integer altitude) {
  Table<Byte, 4> bytes;
  LongtoByte(AltBytes, bytes);
  bytes[1] = static_cast<Byte>(altitude / ByteUnit);
  // Quirk 38: rounded down to a multiple of 32.
  bytes[0] = static_cast<Byte>(altitude % ByteUnit / HighUnit * Nibble + altitude % HighUnit / LowUnit);
  ByteToLong(AltBytes, bytes);
}

Long GetWPAltitude(Long AltBytes) {
  Table<Byte, 4> bytes;
  LongtoByte(AltBytes, bytes);
  return bytes[1] * ByteUnit + bytes[0] / Nibble * HighUnit + bytes[0] % Nibble * LowUnit;
}

void LongtoByte(Long LongVal, Table<Byte, 4>& TargetData) {
  PutLong(TargetData.data(), LongVal);
}

void ByteToLong(Long& LongVal, const Table<Byte, 4>& SourceData) {
  LongVal = LongAt(SourceData.data());
}

}  // namespace velmoran
