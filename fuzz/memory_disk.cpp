#include "memory_disk.h"

#include <algorithm>

#include "files/disk.h"
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

namespace {

std::string NameIn(std::string_view path) {
  return std::string(path.substr(path.find_last_of("/\\") + 1));
}

}  // namespace

std::string CurrentDirectory() {
  return "/simulation/velmoran";
}

InputFile::InputFile(std::string_view path, std::string_view /*advice*/) : path_(NameIn(path)), handle_(0) {
  if (!fuzz::files.contains(path_)) throw Failure{FailureNumber::FileNotFound, path_ + " can't be opened"};
}

InputFile::~InputFile() = default;

std::vector<Byte> InputFile::ReadAll(std::size_t /*mostBytes*/) const {
  return fuzz::files.at(path_);
}

std::string PathForReport(std::string_view path) {
  return NameIn(path);
}

void WriteFile(const std::string& path, std::span<const Byte> bytes, Flush /*flush*/) {
  const std::size_t taken = fuzz::diskIsFull ? bytes.size() / 2 : bytes.size();
  fuzz::files.insert_or_assign(path, fuzz::Bytes(bytes.data(), bytes.data() + taken));
  if (fuzz::diskIsFull) throw Failure{FailureNumber::DiskFull, path + " is incomplete"};
}

}  // namespace velmoran
