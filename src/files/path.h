// Paths as text. A path is UTF-8, and both "/" and "\" separate its components.
#pragma once

#include <string>
#include <string_view>

namespace velmoran {

// The text without its last count characters; a character is a UTF-8 code point. A shorter text gives "".
std::string DropLastCharacters(std::string_view text, int count);

// Whether the texts are equal without regard to the case of the letters A to Z.
bool SameButForCase(std::string_view one, std::string_view other);

// The path as messages show it, with "?" for each control character.
std::string Printable(std::string_view path);

}  // namespace velmoran
