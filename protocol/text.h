// SPDX-License-Identifier: MIT
// Small operations on ASCII text; bytes of UTF-8 pass unchanged. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace glintboard {

// Without spaces, tabs and line breaks at both ends. Refers to the same memory as `text`.
std::string_view trimmed(std::string_view text);

// With the letters A to Z in lower case; everything else unchanged.
std::string lowercased(std::string_view text);

}  // namespace glintboard
