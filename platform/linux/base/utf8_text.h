// SPDX-License-Identifier: MIT
// UTF-8 text that comes from outside or must fit into a limit.
#pragma once

#include <cstddef>
#include <string_view>

namespace glintboard {

// Whether the whole text is UTF-8; a NUL character counts as any other.
bool isUtf8(std::string_view text);

// The longest beginning of UTF-8 `text` that has at most `limit` bytes and ends with a whole
// character.
std::string_view wholeCharacters(std::string_view text, std::size_t limit);

}  // namespace glintboard
