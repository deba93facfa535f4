#include "memory_disk.h"

#include <algorithm>

#include "files/disk.h"
#include "files/path.h"
#include "state/failure.h"

namespace fuzz {

Files files;
bool diskIsFull = false;

std::vector<Bytes> Parts(const velmoran::Byte* data, std::size_t size) {
  std::vector<Bytes> parts;
  const velmoran::Byte* end = data + size;
  for (const velmoran::Byte* at = data;;) {
    const velmoran::Byte* cut = std::search(
        at, end, Cut.begin(), Cut.end(), [](velmoran::Byte a, char b) { return a == static_cast<unsigned char>(b); });
    parts.emplace_back(at, cut);
    if (cut == end) return parts;
    at = cut + Cut.size();
  }
}

}  // namespace fuzz

namespace velmoran {

std::vector<Byte> ReadFile(std::string_view path) {
  const auto file = fuzz::files.find(FileName(path));
  if (file == fuzz::files.end()) throw Failure{FailureNumber::FileNotFound, std::string(path) + " can't be opened"};
  return file->second;
}

void WriteFile(std::string_view path, std::span<const Byte> bytes) {
  const std::size_t room = fuzz::diskIsFull ? bytes.size() / 2 : bytes.size();
  fuzz::files.insert_or_assign(std::string(FileName(path)), fuzz::Bytes(bytes.data(), bytes.data() + room));
  if (fuzz::diskIsFull) throw Failure{FailureNumber::DiskFull, std::string(path) + " is incomplete"};
}

}  // namespace velmoran
