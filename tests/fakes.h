// A form and a source of random draws for tests, instead of a front end and of Rnd.
#pragma once

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace fakes {

// What the logic has done to the form since Reset.
struct Form {
  std::string buttons = "OMRWE";  // by velmoran::Button; "-" stands for one that is disabled
  std::string hint;
  std::string target = "Target: ";
  std::vector<std::string> messages;
  std::vector<std::string> asked;     // "open DIRECTORY [NAME]" for each dialog
  std::optional<std::string> answer;  // what the user types into the next dialog; nothing is Cancel
};
extern Form form;

struct ProgramEnded {
  bool failed;
};

// The draws to come, in order. A draw beyond them fails the test.
void Script(std::vector<float> draws);
std::size_t DrawsLeft();

// "3,-1,0.5"
template <class Numbers>
std::string Join(const Numbers& numbers) {
  std::ostringstream joined;
  for (const auto number : numbers) joined << (joined.tellp() > 0 ? "," : "") << +number;
  return joined.str();
}

}  // namespace fakes
