// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace glintboard {

// Whether `text` is well-formed UTF-8: shortest forms only, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(std::string_view text);

}  // namespace glintboard
