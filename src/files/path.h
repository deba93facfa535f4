// Paths as text. A path is UTF-8, and both "/" and "\" separate its components.
#pragma once

#include <string>
#include <string_view>

namespace velmoran {

// The text without its last count characters; a character is a UTF-8 code point. A shorter text gives "".
std::string DropLastCharacters(std::string_view text, int count);

// Whether the texts are equal without regard to the case of the letters A to Z.
bool SameButForCase(std::string_view one, std::string_view other);

// Replaces each control character by "?". Allocates nothing.
void MaskControls(std::string& text);

// The text as messages show it, with its control characters masked.
std::string Printable(std::string_view text);

}  // namespace velmoran
