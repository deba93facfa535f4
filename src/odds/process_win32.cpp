#include "odds/process.h"

#include "files/utf16.h"
// After windows.h.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>

namespace velmoran {

namespace {

// Where the file is on its disk; false if it doesn't exist.
bool Identify(const std::string& path, BY_HANDLE_FILE_INFORMATION& information) {
  constexpr DWORD AnySharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(ToUtf16(path).c_str(), 0, AnySharing, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool known = GetFileInformationByHandle(file, &information) != 0;
  CloseHandle(file);
  return known;
}

}  // namespace

std::vector<std::string> GivenArguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  LPWSTR* const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> given;
  for (int i = 1; i < count; ++i) given.push_back(ToUtf8(wide[i]));
  LocalFree(wide);
  return given;
}

void BeginOutput() {
  _setmode(_fileno(stdout), _O_BINARY);
}

bool ErrorsAtTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

bool OwnsWindow() {
  DWORD processes[2];
  return GetConsoleProcessList(processes, 2) == 1;
}

bool IsSameFile(const std::string& one, const std::string& other) {
  BY_HANDLE_FILE_INFORMATION first, second;
  return Identify(one, first) && Identify(other, second) && first.dwVolumeSerialNumber == second.dwVolumeSerialNumber &&
         first.nFileIndexHigh == second.nFileIndexHigh && first.nFileIndexLow == second.nFileIndexLow;
}

}  // namespace velmoran
