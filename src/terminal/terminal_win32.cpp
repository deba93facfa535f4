#include "files/utf16.h"
#include "program/dll_search.h"
#include "terminal/byte_lines.h"
#include "terminal/terminal.h"

// A Windows terminal reads and writes UTF-16; its functions for bytes lose what isn't ASCII.

namespace velmoran {

namespace {

bool IsTerminal(DWORD stream) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

constexpr wchar_t EndOfInput = 0x1A;  // Ctrl-Z

}  // namespace

void BeginTerminal() {
  LoadDllsFromSystemOnly();
}

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

}  // namespace velmoran
