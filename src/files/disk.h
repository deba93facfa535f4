// The files on disk. disk_posix.cpp and disk_win32.cpp implement this header, the fuzzers' memory_disk.cpp does so
// without a disk; each program links one of them.
//
// Every Failure thrown here names the whole path of the file and the reason, in the same words on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "state/types.h"

namespace velmoran {

// The current directory, without a trailing separator unless it is a root; "" if the system can't say.
std::string CurrentDirectory();

inline constexpr std::size_t LargestFile = std::size_t{256} << 20;  // in bytes; no file of the simulation has as many

// A file open for reading, and closed with this object.
class InputFile {
 public:
  // Opens the file at the path. On systems other than Windows, each component of the path is taken as it is written if
  // its folder has an entry of that name. Otherwise "\" in it separates components, and a component that doesn't exist
  // as written is matched by SameButForCase (the first in byte order if several match).
  //
  // Throws Failure if the file can't be opened or isn't a regular file. It carries the advice, unless the reason has
  // advice of its own (no permission, in use, an error of the system).
  InputFile(std::string_view path, std::string_view advice);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  // The whole path of the file, in the system's own spelling.
  const std::string& Path() const { return path_; }

  // Reads the rest of the file, which is all of it the first time, in one call. Throws Failure if it can't be read or
  // has more than mostBytes.
  std::vector<Byte> ReadAll(std::size_t mostBytes = LargestFile) const;

 private:
  std::string path_;
  [[maybe_unused]] std::intptr_t handle_;  // the system's; memory_disk.cpp has none
};

// The whole path for a file to be written: its folders are found as by InputFile, its name is taken exactly.
std::string PathForReport(std::string_view path);

enum class Flush { No, ToDisk };

// Opens or creates the file, empties it, writes all bytes in one call, cuts off what another program may have added,
// with Flush::ToDisk waits until the bytes are on the disk, and closes the file. The path is one that InputFile or
// PathForReport returned. Another Velmoran that is writing the same file is waited for. A request to end the program
// meanwhile (a signal; on Windows Ctrl+C or closing the console) takes effect afterwards.
//
// Throws Failure, which says that nothing was written (the file can't be opened, isn't a regular file, or stays locked
// by another program), or that the file is or may be incomplete.
void WriteFile(const std::string& path, std::span<const Byte> bytes, Flush flush);

}  // namespace velmoran
