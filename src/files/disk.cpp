#include "files/disk.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "files/path.h"
#include "state/failure.h"

namespace velmoran {

namespace {

constexpr long LargestFile = 256L << 20;  // in bytes

FailureNumber NumberOf(int cause) {
  switch (cause) {
    case ENOENT:
    case ENOTDIR:
      return FailureNumber::FileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return FailureNumber::PermissionDenied;
    case ENOSPC:
    case EFBIG:
      return FailureNumber::DiskFull;
    default:
      return FailureNumber::FileAccess;
  }
}

// what is a phrase with the file in it; what the system says of the cause follows.
Failure FailureOf(int cause, const std::string& what, const std::string& consequence) {
  return {NumberOf(cause), what + ": " + std::generic_category().message(cause) + consequence};
}

// Whole blocks go past the library's buffer, straight to the system.
void Unbuffer(std::FILE* file) {
  std::setvbuf(file, nullptr, _IONBF, 0);
}

}  // namespace

std::vector<Byte> ReadFile(std::string_view path) {
  const std::string name(path);
  const OpenFile file = OpenForReading(path);
  if (!file) throw FailureOf(errno, name + " can't be opened", "");
  Unbuffer(file.get());

  const bool measured = std::fseek(file.get(), 0, SEEK_END) == 0;
  const long size = measured ? std::ftell(file.get()) : -1;
  if (size < 0 || std::fseek(file.get(), 0, SEEK_SET) != 0) throw FailureOf(errno, name + " can't be read", "");
  if (size > LargestFile) throw Failure{FailureNumber::FileAccess, name + " is larger than 256 MiB"};

  std::vector<Byte> bytes(static_cast<std::size_t>(size));
  if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
    throw FailureOf(std::ferror(file.get()) ? errno : EIO, name + " can't be read", "");
  }
  return bytes;
}

void WriteFile(std::string_view path, std::span<const Byte> bytes) {
  const std::string name(path);
  OpenFile file = OpenForWriting(path);
  if (!file) throw FailureOf(errno, name + " can't be opened for writing", "; nothing was written");
  Unbuffer(file.get());

  errno = 0;
  const std::size_t written = std::fwrite(bytes.data(), 1, bytes.size(), file.get());
  const int cause = written < bytes.size() ? errno : 0;
  const bool closed = std::fclose(file.release()) == 0;
  if (written < bytes.size()) {
    throw FailureOf(
        cause,
        name + ": only " + std::to_string(written) + " of " + std::to_string(bytes.size()) + " bytes could be written",
        "; it is incomplete now");
  }
  if (!closed) throw FailureOf(errno, name + " can't be closed", "; it may be incomplete now");
}

}  // namespace velmoran
