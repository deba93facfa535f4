#include "files/path.h"

#include <algorithm>

namespace velmoran {

std::string DropLastCharacters(std::string_view text, int count) {
  const auto continues = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  for (; count > 0 && !text.empty(); --count) {
    while (text.size() > 1 && continues(text.back())) text.remove_suffix(1);
    text.remove_suffix(1);
  }
  return std::string(text);
}

bool SameButForCase(std::string_view one, std::string_view other) {
  const auto small = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return std::ranges::equal(one, other, {}, small, small);
}

void MaskControls(std::string& text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    if (byte < 0x20 || byte == 0x7F) text[at] = '?';
    if (byte == 0xC2 && next >= 0x80 && next < 0xA0) text.replace(at, 2, "?");  // U+0080 to U+009F in UTF-8
  }
}

std::string Printable(std::string_view text) {
  std::string shown(text);
  MaskControls(shown);
  return shown;
}

}  // namespace velmoran
