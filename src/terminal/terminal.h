// Lines of UTF-8 text from standard input and to standard output, for a person at a terminal or a program at a pipe.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmoran {

// Prepares the process; must be called first in main. On Linux a broken pipe, or a file that has reached the limit on
// its size, then is an error of WriteLine instead of the end of the program, and freed memory is kept for later use; on
// Windows see program/dll_search.h.
void BeginTerminal();

// Whether standard input is a terminal.
bool AtTerminal();

inline constexpr std::size_t LongestLine = 64 * 1024;  // in bytes, many times what the path of a file may have

enum class Input { Line, TooLong, End, Error };

// Reads the next line, without its end. A line longer than LongestLine is read to its end and dropped. If there isn't
// enough memory for the line, throws std::bad_alloc; a line that isn't from a Windows terminal, which has none that
// long, has then been read to its end.
Input ReadLine(std::string& line);

// Writes the label, the text and a line end, and flushes them. Returns false if standard output fails.
bool WriteLine(std::string_view label, std::string_view text);

}  // namespace velmoran
