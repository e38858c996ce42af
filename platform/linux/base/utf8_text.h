// SPDX-License-Identifier: MIT
// Truncates UTF-8 text.
#pragma once

#include <cstddef>
#include <string_view>

namespace glintboard {

// The longest prefix of UTF-8 `text` that has at most `limit` bytes and ends with a whole
// character.
std::string_view wholeCharacters(std::string_view text, std::size_t limit);

}  // namespace glintboard
