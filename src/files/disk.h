// The files on disk. disk_posix.cpp and disk_win32.cpp implement this header, the fuzzers' memory_disk.cpp does so
// without a disk; each program links one of them.
//
// Every Failure thrown here names the whole path of the file and the reason, in the same words on every system.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "state/types.h"

namespace velmoran {

// The current directory, without a trailing separator unless it is a root; "" if the system can't say.
std::string CurrentDirectory();

// A file open for reading, and closed with this object.
class InputFile {
 public:
  // Opens the file at the path. On systems other than Windows, the path is tried as it is written, then with "\" read
  // as "/"; a component that doesn't exist as written is matched by SameButForCase (the first in byte order if several
  // match). Throws Failure if it can't be opened or isn't a regular file. Its advice is adviceIfMissing, unless the
  // reason (no permission, an error of the system) has advice of its own.
  InputFile(std::string_view path, std::string_view adviceIfMissing);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // The whole path of the file, in the system's own spelling.
  const std::string& Path() const { return path_; }

  // All bytes of the file, in one read. Throws Failure if it can't be read or is larger than 256 MiB, which no file of
  // the simulation is.
  std::vector<Byte> ReadAll() const;

 private:
  std::string path_;
  [[maybe_unused]] std::intptr_t handle_;  // the system's; memory_disk.cpp has none
};

// The whole path for a file to be written: its folders are found as by InputFile, its name is taken exactly.
std::string PathForReport(std::string_view path);

enum class Flush { No, ToDisk };

// Empties or creates the file, writes all bytes in one call, with Flush::ToDisk waits until they are on the disk, and
// closes the file. The path is one that InputFile or PathForReport returned. A request to end the program meanwhile (a
// signal; on Windows Ctrl+C or closing the console) takes effect afterwards.
//
// Throws Failure, which says whether nothing was written (the file can't be opened, or isn't a regular file) or the
// file is incomplete.
void WriteFile(const std::string& path, std::span<const Byte> bytes, Flush flush);

}  // namespace velmoran
