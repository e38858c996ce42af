// SPDX-License-Identifier: MIT
#include "protocol/utf8.h"

#include <cstdint>
#include <cstring>

namespace glintboard {

bool isValidUtf8(std::string_view text) {
  std::size_t position = 0;
  while (position < text.size()) {
    // Most text is ASCII.
    std::uint64_t word = 0;
    if (text.size() - position >= sizeof(word)) {
      std::memcpy(&word, text.data() + position, sizeof(word));
      if ((word & 0x8080808080808080U) == 0) {
        position += sizeof(word);
        continue;
      }
    }
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) {
      continue;
    }
    int following = 0;
    std::uint32_t point = 0;
    std::uint32_t smallest = 0;
    if ((lead & 0xE0) == 0xC0) {
      following = 1, point = lead & 0x1F, smallest = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
      following = 2, point = lead & 0x0F, smallest = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
      following = 3, point = lead & 0x07, smallest = 0x10000;
    } else {
      return false;
    }
    for (; following > 0; --following) {
      if (position == text.size()) {
        return false;
      }
      const auto next = static_cast<unsigned char>(text[position++]);
      if ((next & 0xC0) != 0x80) {
        return false;
      }
      point = point << 6 | (next & 0x3F);
    }
    if (point < smallest || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) {
      return false;
    }
  }
  return true;
}

}  // namespace glintboard
