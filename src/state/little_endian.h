// 16-bit and 32-bit numbers as bytes, the least significant byte first, on any machine.
#pragma once

#include "state/types.h"

namespace velmoran {

// The Integer in the two bytes from at on.
constexpr Integer IntegerAt(const Byte* at) {
  return static_cast<Integer>(at[0] | at[1] << 8);
}

// The Long in the four bytes from at on.
constexpr Long LongAt(const Byte* at) {
  return static_cast<Long>(at[0] | std::uint32_t{at[1]} << 8 | std::uint32_t{at[2]} << 16 | std::uint32_t{at[3]} << 24);
}

// Stores the Long in the four bytes from at on.
constexpr void PutLong(Byte* at, Long value) {
  const auto bits = static_cast<std::uint32_t>(value);
  for (int i = 0; i < 4; ++i) at[i] = static_cast<Byte>(bits >> (8 * i));
}

}  // namespace velmoran
