// What goes wrong with a file or with what stands in it. A Failure travels up to the event that started the work and
// is shown there, once.
#pragma once

#include <string>

#include "state/types.h"

namespace velmoran {

// All failure numbers of the program.
enum class FailureNumber : Integer {
  Overflow = 6,      // a number that its field can't hold
  OutsideTable = 9,  // a count or a row number that leads out of a table
  NoNumber = 13,     // text where a number is due
  FileNotFound = 53,
  DiskFull = 61,
  PastEndOfFile = 62,  // a file that ends before its last item
  PermissionDenied = 70,
  FileAccess = 75,  // any other trouble with a path or a file
};

struct Failure {
  FailureNumber number;
  std::string description;  // names the file, the place in it and the reason
};

// "Error # ", the number, a blank and the description: the text of the message box.
inline std::string FailureText(const Failure& failure) {
  return "Error # " + std::to_string(static_cast<Integer>(failure.number)) + " " + failure.description;
}

}  // namespace velmoran
