// Converts between the program's UTF-8 and the UTF-16 of Windows, for the sources that are only built there. Malformed
// text becomes U+FFFD.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace velmoran {

inline std::wstring ToUtf16(std::string_view text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

inline std::string ToUtf8(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), size, nullptr, nullptr);
  return text;
}

}  // namespace velmoran
