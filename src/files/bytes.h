// Reads and writes the packed, little-endian fields of a file. A record's field list is a function that passes each
// field, in file order, to its first argument: FieldWidths, FieldReader or FieldWriter. ByteCursor walks a whole file
// and checks each step against the bytes that remain.
#pragma once

#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "state/failure.h"
#include "state/little_endian.h"
#include "state/types.h"

namespace velmoran {

// Sums the widths of the fields in the file, in bytes.
struct FieldWidths {
  std::size_t total = 0;

  constexpr void operator()(Byte) { total += 1; }
  constexpr void operator()(Long) { total += 4; }
  template <class Entry, std::size_t Count>
  constexpr void operator()(const Table<Entry, Count>&) {
    total += Count * sizeof(Entry);
  }
};

// Reads the fields starting at at. Requires FieldWidths bytes.
struct FieldReader {
  const Byte* at;

  void operator()(Byte& field) { field = *at++; }
  void operator()(Long& field) {
    field = LongAt(at);
    at += 4;
  }
  template <std::size_t Count>
  void operator()(Table<Byte, Count>& field) {
    std::memcpy(field.data(), at, Count);
    at += Count;
  }
  template <std::size_t Count>
  void operator()(Table<Long, Count>& field) {
    for (Long& entry : field) (*this)(entry);
  }
};

// Writes the fields starting at at. Requires room for FieldWidths bytes.
struct FieldWriter {
  Byte* at;

  void operator()(Byte field) { *at++ = field; }
  void operator()(Long field) {
    PutLong(at, field);
    at += 4;
  }
  template <std::size_t Count>
  void operator()(const Table<Byte, Count>& field) {
    std::memcpy(at, field.data(), Count);
    at += Count;
  }
  template <std::size_t Count>
  void operator()(const Table<Long, Count>& field) {
    for (const Long entry : field) (*this)(entry);
  }
};

class ByteCursor {
 public:
  // Starts at the offset, which may be past the end of the bytes.
  ByteCursor(std::span<const Byte> bytes, std::string_view file, std::int64_t offset = 0)
      : bytes_(bytes), file_(file), offset_(offset) {}

  // Returns the next count bytes and moves past them. Throws Failure if fewer remain; it names the file, the part of it
  // that these bytes belong to, with its number unless that is -1, and the offset.
  const Byte* Take(std::int64_t count, std::string_view part, Long number = -1) {
    const std::int64_t missing = offset_ + count - static_cast<std::int64_t>(bytes_.size());
    if (missing > 0) {
      throw Failure{FailureNumber::PastEndOfFile, Place(part, number) + ": the file ends " + std::to_string(missing) +
                                                      (missing == 1 ? " byte" : " bytes") + " too early"};
    }
    const Byte* taken = bytes_.data() + offset_;
    offset_ += count;
    return taken;
  }

  // "file, record 3 at offset 1234", for the description of a Failure.
  std::string Place(std::string_view part, Long number = -1) const {
    return std::string(file_) + ", " + std::string(part) + (number < 0 ? "" : " " + std::to_string(number)) +
           " at offset " + std::to_string(offset_);
  }

 private:
  std::span<const Byte> bytes_;
  std::string_view file_;
  std::int64_t offset_;
};

}  // namespace velmoran
