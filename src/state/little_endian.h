// 16-bit and 32-bit numbers as bytes, the least significant byte first, on any machine.
#pragma once

#include "state/types.h"

namespace velmoran {

// The Integer in the two bytes.
constexpr Integer IntegerAt(const Byte* bytes) {
  return static_cast<Integer>(bytes[0] | bytes[1] << 8);
}

// The Long in the four bytes.
constexpr Long LongAt(const Byte* bytes) {
  return static_cast<Long>(bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
                           std::uint32_t{bytes[3]} << 24);
}

// Stores the Long in the four bytes.
constexpr void PutLong(Byte* bytes, Long value) {
  const auto bits = static_cast<std::uint32_t>(value);
  for (int i = 0; i < 4; ++i) bytes[i] = static_cast<Byte>(bits >> (8 * i));
}

}  // namespace velmoran
