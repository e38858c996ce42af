// SPDX-License-Identifier: MIT
// Small operations on the texts of Shortcuts.
#pragma once

#include <string>
#include <string_view>

namespace glintboard {

// Control characters become spaces, and white space at both ends goes.
std::string oneLine(std::string_view text);

// With the letters a to z in upper case; everything else unchanged.
std::string upperCase(std::string_view text);

}  // namespace glintboard
