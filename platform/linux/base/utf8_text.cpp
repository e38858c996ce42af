// SPDX-License-Identifier: MIT
#include "platform/linux/base/utf8_text.h"

#include <glib.h>

#include <algorithm>

namespace glintboard {

bool isUtf8(std::string_view text) {
  // GLib takes a NUL for an error, so the pieces between them are looked at.
  for (;;) {
    const std::string_view piece = text.substr(0, text.find('\0'));
    if (::g_utf8_validate_len(piece.data(), piece.size(), nullptr) == FALSE) {
      return false;
    }
    if (piece.size() == text.size()) {
      return true;
    }
    text.remove_prefix(piece.size() + 1);
  }
}

std::string_view wholeCharacters(std::string_view text, std::size_t limit) {
  text = text.substr(0, limit);
  // Only a character that begins within the last three bytes can be cut.
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
