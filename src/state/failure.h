// An input that the program refuses. A Failure is thrown where the fault is found, caught by the event that started
// the work, and shown there, once.
#pragma once

#include <string>

#include "state/types.h"

namespace velmoran {

// All failure numbers of the program.
enum class FailureNumber : Integer {
  Overflow = 6,         // a number that doesn't fit its field
  NotEnoughMemory = 7,  // shown for std::bad_alloc
  OutsideTable = 9,     // a count or an index outside its table
  NotANumber = 13,      // text where a number is expected
  FileNotFound = 53,
  DiskFull = 61,
  PastEndOfFile = 62,  // a file that ends before its last item
  PermissionDenied = 70,
  FileAccess = 75,  // any other problem with a path or a file
};

struct Failure {
  FailureNumber number;
  std::string description;  // the file, the place in it and the reason; without a final period
  std::string advice = {};  // what to do, in whole sentences; empty if the event is to add it
};

// "Error # ", the number, a space, the description and the advice: the text of the message box.
inline std::string FailureText(const Failure& failure) {
  return "Error # " + std::to_string(static_cast<Integer>(failure.number)) + " " + failure.description + "." +
         (failure.advice.empty() ? "" : " " + failure.advice);
}

// "WPCount 32 is outside 0 to 31", for the description of a Failure.
inline std::string OutsideText(const std::string& what, Long least, Long most) {
  return what + " is outside " + std::to_string(least) + " to " + std::to_string(most);
}

}  // namespace velmoran
