// SPDX-License-Identifier: MIT
#include "protocol/text.h"

namespace glintboard {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view whiteSpace = " \t\n\v\f\r";
  const auto first = text.find_first_not_of(whiteSpace);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::string lowercased(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) {
    if (letter >= 'A' && letter <= 'Z') {
      letter = static_cast<char>(letter - 'A' + 'a');
    }
  }
  return lower;
}

}  // namespace glintboard
