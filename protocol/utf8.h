// SPDX-License-Identifier: MIT
// Validation of UTF-8, for everything that comes from outside and goes out on the wire.
#pragma once

#include <string_view>

namespace glintboard {

// Whether `text` is well-formed UTF-8: shortest forms only, no surrogates, nothing above U+10FFFF.
// Empty text is valid. Any thread.
bool isValidUtf8(std::string_view text);

}  // namespace glintboard
