// Operations of the system that only velmoran-odds needs.
#pragma once

#include <string>
#include <vector>

namespace velmoran {

// The arguments after the program's name, in UTF-8; argc and argv are those of main.
std::vector<std::string> GivenArguments(int argc, char** argv);

// Makes standard output end lines in "\n" alone, unless it is a terminal.
void BeginOutput();

// Whether standard error is a terminal.
bool ErrorsAtTerminal();

// Whether the terminal is a window that was opened for this program alone, and closes when it ends.
bool OwnsWindow();

// Whether both paths, as InputFile and PathForReport return them, name the same existing file.
bool IsSameFile(const std::string& one, const std::string& other);

}  // namespace velmoran
