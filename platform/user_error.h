// SPDX-License-Identifier: MIT
// Errors with a text for the user.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace glintboard {

// `what()` is English, for phones and the log. Views translate the pattern and fill in the parts.
class UserError : public std::runtime_error {
 public:
  // "%1" and "%2" in the pattern stand for the parts. The pattern must be a literal marked
  // QT_TRANSLATE_NOOP("UserError", "…").
  explicit UserError(const char* givenPattern, std::vector<std::string> givenParts = {})
      : std::runtime_error(filled(givenPattern, givenParts)),
        pattern(givenPattern),
        parts(std::move(givenParts)) {}

  // The pattern, or a translation of it, with the parts filled in.
  static std::string filled(std::string_view pattern, const std::vector<std::string>& parts) {
    std::string text;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
      const bool isPlaceholder = pattern[at] == '%' && at + 1 < pattern.size();
      const auto part =
          isPlaceholder ? static_cast<std::size_t>(pattern[at + 1]) - '1' : parts.size();
      if (part < parts.size()) {
        text += parts[part];
        ++at;
      } else {
        text += pattern[at];
      }
    }
    return text;
  }

  // For translation: the arguments of the constructor.
  const char* pattern;
  std::vector<std::string> parts;
};

}  // namespace glintboard
