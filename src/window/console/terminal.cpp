#include "window/console/terminal.h"

#include <cstdio>
#include <new>

#ifdef _WIN32
#include "files/utf16.h"
#else
#include <malloc.h>
#include <unistd.h>

#include <csignal>
#endif

namespace velmoran {

namespace {

Input ReadBytes(std::string& line) {
  line.clear();
  int next = std::getchar();
  const bool atEnd = next == EOF;
  try {
    for (; next != EOF && next != '\n'; next = std::getchar()) line += static_cast<char>(next);
  } catch (const std::bad_alloc&) {
    while (next != EOF && next != '\n') next = std::getchar();
    throw;
  }
  if (std::ferror(stdin) != 0) return Input::Error;
  return atEnd ? Input::End : Input::Line;
}

bool WriteBytes(std::string_view label, std::string_view text) {
  std::fwrite(label.data(), 1, label.size(), stdout);
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace

#ifdef _WIN32

// A terminal of Windows takes and gives UTF-16; its byte functions lose what isn't ASCII.

namespace {

bool IsTerminal(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

constexpr wchar_t EndOfInput = 0x1A;  // Ctrl-Z

}  // namespace

void BeginTerminal() {}

bool AtTerminal() {
  return IsTerminal(STD_INPUT_HANDLE);
}

Input ReadLine(std::string& line) {
  if (!AtTerminal()) return ReadBytes(line);
  std::wstring wide;
  wchar_t unit = 0;
  while (unit != L'\n') {
    DWORD count = 0;
    if (ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), &unit, 1, &count, nullptr) == 0) return Input::Error;
    if (count == 0) return Input::End;
    if (unit != L'\n') wide += unit;
  }
  line = ToUtf8(wide);
  return wide.starts_with(EndOfInput) ? Input::End : Input::Line;
}

bool WriteLine(std::string_view label, std::string_view text) {
  if (!IsTerminal(STD_OUTPUT_HANDLE)) return WriteBytes(label, text);
  const std::wstring wide = ToUtf16(std::string(label) + std::string(text) + "\r\n");
  DWORD count = 0;
  return WriteConsoleW(GetStdHandle(STD_OUTPUT_HANDLE), wide.data(), static_cast<DWORD>(wide.size()), &count,
                       nullptr) != 0;
}

#else

void BeginTerminal() {
  std::signal(SIGPIPE, SIG_IGN);
#ifdef __GLIBC__  // which would give a report's memory back to the system, and take fresh pages for the next report
  constexpr int Kept = 32 << 20;  // in bytes, more than a plan and its report take
  mallopt(M_MMAP_THRESHOLD, Kept);
  mallopt(M_TRIM_THRESHOLD, Kept);
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

#endif

}  // namespace velmoran
