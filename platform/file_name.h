// SPDX-License-Identifier: MIT
// Texts from outside that become part of a path.
#pragma once

#include <string_view>

namespace glintboard {

// Whether `text` names a file directly inside a folder: it is not empty, leads nowhere else and is
// not hidden.
constexpr bool isFileName(std::string_view text) {
  return !text.empty() && text.front() != '.' &&
         text.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

}  // namespace glintboard
