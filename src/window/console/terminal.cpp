#include "window/console/terminal.h"

#include <cstdio>

#ifdef _WIN32
#include "files/utf16.h"
#else
#include <unistd.h>
#endif

namespace velmoran {

namespace {

bool ReadBytes(std::string& line) {
  line.clear();
  int next = std::getchar();
  if (next == EOF) return false;
  for (; next != EOF && next != '\n'; next = std::getchar()) line += static_cast<char>(next);
  return true;
}

void WriteBytes(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

}  // namespace

#ifdef _WIN32

// A terminal of Windows speaks UTF-16; its byte functions lose what isn't ASCII.

namespace {

bool IsTerminal(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

constexpr wchar_t EndOfInput = 0x1A;  // Ctrl-Z

}  // namespace

bool AtTerminal() {
  return IsTerminal(STD_INPUT_HANDLE);
}

bool ReadLine(std::string& line) {
  if (!AtTerminal()) return ReadBytes(line);
  std::wstring wide;
  wchar_t unit = 0;
  DWORD count = 0;
  while (ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), &unit, 1, &count, nullptr) && count == 1 && unit != L'\n') {
    wide += unit;
  }
  line = ToUtf8(wide);
  return unit == L'\n' && !wide.starts_with(EndOfInput);
}

void WriteLine(const std::string& line) {
  if (!IsTerminal(STD_OUTPUT_HANDLE)) return WriteBytes(line + "\n");
  const std::wstring wide = ToUtf16(line + "\r\n");
  WriteConsoleW(GetStdHandle(STD_OUTPUT_HANDLE), wide.data(), static_cast<DWORD>(wide.size()), nullptr, nullptr);
}

#else

bool AtTerminal() {
  return isatty(STDIN_FILENO) != 0;
}

bool ReadLine(std::string& line) {
  return ReadBytes(line);
}

void WriteLine(const std::string& line) {
  WriteBytes(line + "\n");
}

#endif

}  // namespace velmoran
