// SPDX-License-Identifier: MIT
// Small operations on ASCII text.
#pragma once

#include <string>
#include <string_view>

namespace glintboard {

// Without white space and line breaks at both ends.
std::string_view trimmed(std::string_view text);

// With the letters A to Z in lower case; everything else unchanged.
std::string lowercased(std::string_view text);

}  // namespace glintboard
