#include <unistd.h>

#include <csignal>

#include "window/console/byte_lines.h"
#include "window/console/terminal.h"

namespace velmoran {

void BeginTerminal() {
  std::signal(SIGPIPE, SIG_IGN);
}

bool AtTerminal() {
  return isatty(STDIN_FILENO) != 0;
}

Input ReadLine(std::string& line) {
  return ReadBytes(line);
}

bool WriteLine(std::string_view label, std::string_view text) {
  return WriteBytes(label, text);
}

}  // namespace velmoran
