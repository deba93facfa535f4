// Paths as the user and the simulation write them, and the files behind them. A path is UTF-8 text in which both "/"
// and "\" part the components.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace velmoran {

// The directory that the system resolves relative paths against, without a trailing separator but for a root's; ""
// where the system can't tell.
std::string CurrentDirectory();

// The text without its last characters; a character is a UTF-8 code point. A shorter text gives "".
std::string DropLastCharacters(std::string_view text, int count);

// Whether the texts are equal without regard to the case of the letters A to Z.
bool SameButForCase(std::string_view one, std::string_view other);

// The last component of a path, for messages.
std::string_view FileName(std::string_view path);

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

// Opens the file for reading, or empties or creates it for writing; bytes pass as they are. Where the system isn't
// Windows, the path is tried as it stands, then with "\" read as "/", and a component that doesn't exist as written
// is matched by SameButForCase (of several matches the first in byte order). Null with the reason in errno when the
// file can't be opened, or is to be read and isn't a regular file.
OpenFile OpenForReading(std::string_view path);
OpenFile OpenForWriting(std::string_view path);

}  // namespace velmoran
