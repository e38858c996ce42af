// SPDX-License-Identifier: MIT
// Text functions for Shortcuts.
#pragma once

#include <string>
#include <string_view>

namespace glintboard {

// Replaces control characters with spaces and removes spaces at both ends.
std::string oneLine(std::string_view text);

// Converts the letters a to z to upper case.
std::string upperCase(std::string_view text);

}  // namespace glintboard
