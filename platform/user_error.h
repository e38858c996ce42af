// SPDX-License-Identifier: MIT
// An error that a person reads.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace glintboard {

// `what()` is English, since it also goes to phones and into the log; a view translates the pattern
// and fills in the parts by itself.
class UserError : public std::runtime_error {
 public:
  // In the pattern "%1" and "%2" stand for the parts. It is a literal that is marked
  // QT_TRANSLATE_NOOP("UserError", "…").
  explicit UserError(const char* givenPattern, std::vector<std::string> givenParts = {})
      : std::runtime_error(filled(givenPattern, givenParts)),
        pattern(givenPattern),
        parts(std::move(givenParts)) {}

  // The pattern, or a translation of it, with the parts in their places.
  static std::string filled(std::string_view pattern, const std::vector<std::string>& parts) {
    std::string text;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
      const bool isPlace = pattern[at] == '%' && at + 1 < pattern.size();
      const auto part = isPlace ? static_cast<std::size_t>(pattern[at + 1]) - '1' : parts.size();
      if (part < parts.size()) {
        text += parts[part];
        ++at;
      } else {
        text += pattern[at];
      }
    }
    return text;
  }

  const char* pattern;
  std::vector<std::string> parts;
};

}  // namespace glintboard
