// SPDX-License-Identifier: MIT
#include "tools/phone/output.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace glintboard::phone {
namespace {

bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// The length of the character that `text` begins with; at least 1.
std::size_t characterLength(std::string_view text) {
  const auto end = std::find_if_not(text.begin() + 1, text.end(), isContinuation);
  return static_cast<std::size_t>(end - text.begin());
}

// ASCII control characters, their high counterparts, line and paragraph separators, and the
// embeddings, overrides and isolates of bidirectional text.
bool steersTerminal(std::string_view character) {
  const auto first = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) {
    return first < 0x20 || first >= 0x7F;
  }
  if (character.size() == 2) {
    return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
  }
  return (character >= "\u2028" && character <= "\u202E" && character.size() == 3) ||
         (character >= "\u2066" && character <= "\u2069" && character.size() == 3);
}

std::size_t width(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, isContinuation));
}

// The serializer escapes the control characters that JSON requires. Terminals obey others too,
// which are escaped here; they occur only within strings.
std::string escapeHighControls(std::string_view json) {
  std::string escaped;
  constexpr std::string_view digits = "0123456789abcdef";
  while (!json.empty()) {
    const auto character = json.substr(0, characterLength(json));
    json.remove_prefix(character.size());
    const auto last = static_cast<unsigned char>(character.back());
    if (character.size() <= 2 && steersTerminal(character)) {
      escaped.append("\\u00").append(1, digits[last >> 4U]).append(1, digits[last & 0xFU]);
    } else {
      escaped.append(character);
    }
  }
  return escaped;
}

}  // namespace

std::string printable(std::string_view text) {
  std::string kept;
  while (!text.empty()) {
    const auto character = text.substr(0, characterLength(text));
    text.remove_prefix(character.size());
    if (!steersTerminal(character)) {
      kept.append(character);
    }
  }
  return kept;
}

std::string milliseconds(std::chrono::duration<double> time) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.2f ms", time.count() * 1000);
  return text.data();
}

bool Output::canMark() const {
  if (&out_ != &std::cout || ::isatty(STDOUT_FILENO) == 0) {
    return false;
  }
  // The first variable that is set decides, as in the C library.
  for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    if (const char* value = std::getenv(variable); value != nullptr && *value != '\0') {
      const std::string_view locale = value;
      return locale.find("UTF-8") != locale.npos || locale.find("utf8") != locale.npos;
    }
  }
  return false;
}

void Output::line(std::string_view text) {
  if (!json_) {
    out_ << printable(text) << std::endl;
  }
}

void Output::table(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths[column] = std::max(widths[column], width(printable(row[column])));
    }
  }
  for (const auto& row : rows) {
    std::string text;
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::string cell = printable(row[column]);
      text += "  " + cell + std::string(widths[column] - width(cell), ' ');
    }
    line(text.substr(0, text.find_last_not_of(' ') + 1));
  }
}

void Output::note(std::string_view text) {
  if (!json_) {
    error_ << printable(text) << std::endl;
  }
}

void Output::record(const boost::json::object& object) {
  if (json_) {
    out_ << escapeHighControls(boost::json::serialize(object)) << std::endl;
  }
}

void Output::failure(const PhoneFailure& failure) {
  note(failure.what());
  record({{"ok", false}, {"code", failure.code}, {"message", failure.what()}});
}

}  // namespace glintboard::phone
