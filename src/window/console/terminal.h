// Lines of text in UTF-8 from standard input and to standard output, whether a person is at their other end or a
// program.
#pragma once

#include <string>

namespace velmoran {

// Whether standard input is a terminal.
bool AtTerminal();

// Takes the next line, without its end; false where the input has ended.
bool ReadLine(std::string& line);

// Writes the line and its end at once.
void WriteLine(const std::string& line);

}  // namespace velmoran
