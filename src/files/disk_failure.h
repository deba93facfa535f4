// The failures that disk_posix.cpp and disk_win32.cpp report, in the same words on every system.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "files/path.h"
#include "state/failure.h"

namespace velmoran {

// Why the system refuses something.
struct Reason {
  FailureNumber number;
  std::string text;
  std::string advice = {};  // what to do if the file was to be read; empty: the caller's advice
};

inline Reason DoesNotExist() {
  return {FailureNumber::FileNotFound, "the file does not exist"};
}
inline Reason InvalidName() {
  return {FailureNumber::FileNotFound, "it is not a valid file name"};
}
inline Reason FolderDoesNotExist() {
  return {FailureNumber::FileNotFound, "the folder does not exist"};
}
inline Reason PermissionDenied() {
  return {FailureNumber::PermissionDenied, "permission denied", "Check that you may read it."};
}
inline Reason InUse() {
  return {FailureNumber::PermissionDenied, "another program is using it", "Close that program, and try again."};
}
inline Reason DiskIsFull() {
  return {FailureNumber::DiskFull, "the disk is full"};
}
inline Reason FileSizeLimit() {
  return {FailureNumber::DiskFull, "the disk is full or a limit on the size of files is reached"};
}
inline Reason IsAFolder() {
  return {FailureNumber::FileAccess, "it is a folder"};
}
inline Reason NotARegularFile() {
  return {FailureNumber::FileAccess, "it is not a regular file"};
}
inline Reason SystemError(unsigned long code) {
  return {FailureNumber::FileAccess, "system error " + std::to_string(code), "Remove the cause, and try again."};
}

inline Failure CannotOpen(std::string_view path, const Reason& reason, std::string_view advice) {
  return {reason.number, Printable(path) + " can't be opened: " + reason.text,
          reason.advice.empty() ? std::string(advice) : reason.advice};
}
inline Failure CannotRead(std::string_view path, const Reason& reason) {
  return {reason.number, Printable(path) + " can't be read: " + reason.text, reason.advice};
}
inline Failure TooLarge(std::string_view path, std::size_t mostBytes) {
  constexpr std::size_t KiB = 1024, MiB = KiB * KiB;
  return {FailureNumber::FileAccess,
          Printable(path) + " is larger than " +
              (mostBytes < MiB ? std::to_string(mostBytes / KiB) + " KiB" : std::to_string(mostBytes / MiB) + " MiB")};
}
inline Failure CannotOpenForWriting(std::string_view path, const Reason& reason) {
  return {reason.number, Printable(path) + " can't be opened for writing: " + reason.text + ". Nothing was written"};
}
inline Failure CutShort(std::string_view path, std::size_t written, std::size_t size, const Reason& reason) {
  return {reason.number, Printable(path) + ": only " + std::to_string(written) + " of " + std::to_string(size) +
                             " bytes could be written: " + reason.text + ". The file is incomplete now"};
}
inline Failure NotStored(std::string_view path, const Reason& reason) {
  return {reason.number,
          Printable(path) + " can't be completed on the disk: " + reason.text + ". The file may be incomplete now"};
}

}  // namespace velmoran
