// The system's number types, the tables they index, and the one rounding rule.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace velmoran {

using Byte = std::uint8_t;
using Integer = std::int16_t;
using Long = std::int32_t;

// A table of fixed size, indexed by a signed number from 0. An index outside the table is the caller's error; builds
// with library assertions stop there.
template <class Row, std::size_t Rows>
struct Table : std::array<Row, Rows> {
  constexpr Row& operator[](Long row) { return std::array<Row, Rows>::operator[](static_cast<std::size_t>(row)); }
  constexpr const Row& operator[](Long row) const {
    return std::array<Row, Rows>::operator[](static_cast<std::size_t>(row));
  }
};

// The low 16 bits of a Long, as an Integer.
constexpr Integer Narrow(Long value) {
  return static_cast<Integer>(value);
}

// The nearest whole number, ties to even, clamped to the range of a Long. Not for NaN.
inline Long RoundEven(double value) {
  const double rounded = std::nearbyint(value);
  return static_cast<Long>(
      std::clamp<double>(rounded, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()));
}

}  // namespace velmoran
