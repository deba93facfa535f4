#include "odds/process.h"

#include <sys/stat.h>
#include <unistd.h>

namespace velmoran {

std::vector<std::string> GivenArguments(int argc, char** argv) {
  std::vector<std::string> given;
  for (int i = 1; i < argc; ++i) given.emplace_back(argv[i]);
  return given;
}

void BeginOutput() {}

bool ErrorsAtTerminal() {
  return isatty(STDERR_FILENO) != 0;
}

bool OwnsWindow() {
  return false;
}

bool IsSameFile(const std::string& one, const std::string& other) {
  struct stat first, second;
  return stat(one.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0 && first.st_dev == second.st_dev &&
         first.st_ino == second.st_ino;
}

}  // namespace velmoran
