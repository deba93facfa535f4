// Lines of UTF-8 text from standard input and to standard output, for a person at a terminal or a program at a pipe.
#pragma once

#include <string>
#include <string_view>

namespace velmoran {

// Prepares the process: a broken pipe, or a file that has reached the limit on its size, is an error of WriteLine
// instead of the end of the program, and freed memory is kept for later use.
void BeginTerminal();

// Whether standard input is a terminal.
bool AtTerminal();

enum class Input { Line, End, Error };

// Reads the next line, without its end. The rest of a line for which there isn't enough memory is skipped before
// std::bad_alloc goes on.
Input ReadLine(std::string& line);

// Writes the label, the text and a line end at once. False if standard output fails.
bool WriteLine(std::string_view label, std::string_view text);

}  // namespace velmoran
