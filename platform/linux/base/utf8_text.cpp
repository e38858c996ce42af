// SPDX-License-Identifier: MIT
#include "platform/linux/base/utf8_text.h"

#include <algorithm>

namespace glintboard {

std::string_view wholeCharacters(std::string_view text, std::size_t limit) {
  text = text.substr(0, limit);
  // Only a character that starts in the last three bytes can be incomplete.
  for (std::size_t back = 1; back <= std::min<std::size_t>(text.size(), 3); ++back) {
    const auto byte = static_cast<unsigned char>(text[text.size() - back]);
    if ((byte & 0xC0u) == 0x80u) {
      continue;
    }
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back ? text.substr(0, text.size() - back) : text;
  }
  return text;
}

}  // namespace glintboard
