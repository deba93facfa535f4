#include <malloc.h>
#include <unistd.h>

#include <csignal>

#include "terminal/byte_lines.h"
#include "terminal/terminal.h"

namespace velmoran {

void BeginTerminal() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
#ifdef __GLIBC__  // which would return a report's memory to the system, and take fresh pages for the next report
  constexpr int KeptMemory = 32 << 20;  // in bytes, more than a plan and its report take
  mallopt(M_MMAP_THRESHOLD, KeptMemory);
  mallopt(M_TRIM_THRESHOLD, KeptMemory);
#endif
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
