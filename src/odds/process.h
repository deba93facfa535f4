// What velmoran-odds needs of the system beside the files and lines that the other programs use.
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

// Whether both paths, as disk.h gives them, lead to one existing file.
bool IsSameFile(const std::string& one, const std::string& other);

}  // namespace velmoran
