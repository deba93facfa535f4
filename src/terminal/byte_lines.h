// ReadLine and WriteLine of terminal.h for everything but a Windows terminal: lines of bytes, passed on unchanged.
#pragma once

#include <cstdio>
#include <new>
#include <string>
#include <string_view>

#include "terminal/terminal.h"

namespace velmoran {

// Reads on to the end of the line, starting with this byte of it.
inline void SkipLine(int next) {
  while (next != EOF && next != '\n') next = std::getchar();
}

inline Input ReadBytes(std::string& line) {
  line.clear();
  int next = std::getchar();
  const bool atEnd = next == EOF;
  try {
    for (; next != EOF && next != '\n' && line.size() < LongestLine; next = std::getchar()) {
      line += static_cast<char>(next);
    }
  } catch (const std::bad_alloc&) {
    SkipLine(next);
    throw;
  }
  const bool tooLong = next != EOF && next != '\n';
  if (tooLong) SkipLine(next);
  if (std::ferror(stdin) != 0) return Input::Error;
  return tooLong ? Input::TooLong : atEnd ? Input::End : Input::Line;
}

inline bool WriteBytes(std::string_view label, std::string_view text) {
  std::fwrite(label.data(), 1, label.size(), stdout);
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fputc('\n', stdout);
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

}  // namespace velmoran
