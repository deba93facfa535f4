// A form and a source of draws that tests script and read back, in place of a front end and of Rnd.
#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace fakes {

// What the logic has done to the form since Reset.
struct Form {
  std::string directory;                                      // what CurrentDirectory gives; the real one when empty
  std::array<bool, 5> enabled{true, true, true, true, true};  // by velmoran::Button
  std::string hint;
  std::string target = "Target: ";
  std::vector<std::string> messages;
  std::vector<std::string> asked;  // "open DIRECTORY [NAME]" for each dialog
  std::string answer;              // what the user types into the next dialog; "" is Cancel
};
extern Form form;

// Which of the five buttons are enabled: O, M, R, W, E.
std::string Buttons();

struct ProgramEnded {
  bool failed;
};

// The draws to come, in order. A draw beyond them fails the test.
void Script(std::initializer_list<float> draws);
std::size_t DrawsLeft();

void Reset();

}  // namespace fakes
