// SPDX-License-Identifier: MIT
#include "protocol/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>

namespace glintboard {
namespace {

template <class Number>
void append(std::string& output, Number number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  output.append(digits.data(), end);
}

bool needsEscape(char character) {
  return character == '"' || character == '\\' || static_cast<unsigned char>(character) < 0x20;
}

void appendEscaped(std::string& output, char character) {
  switch (character) {
    case '"':
      output += "\\\"";
      break;
    case '\\':
      output += "\\\\";
      break;
    case '\n':
      output += "\\n";
      break;
    case '\r':
      output += "\\r";
      break;
    case '\t':
      output += "\\t";
      break;
    default: {
      constexpr std::string_view digits = "0123456789abcdef";
      output += "\\u00";
      output += digits[static_cast<unsigned char>(character) >> 4];
      output += digits[static_cast<unsigned char>(character) & 0x0F];
    }
  }
}

}  // namespace

void JsonWriter::write(std::string_view text) {
  output_ += '"';
  std::size_t plainFrom = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (needsEscape(text[i])) {
      output_.append(text, plainFrom, i - plainFrom);
      appendEscaped(output_, text[i]);
      plainFrom = i + 1;
    }
  }
  output_.append(text, plainFrom);
  output_ += '"';
}

void JsonWriter::write(std::int64_t number) {
  append(output_, number);
}

void JsonWriter::write(double number) {
  if (std::isfinite(number)) {
    append(output_, number);
  } else {
    output_ += "null";
  }
}

void JsonWriter::open(char bracket) {
  output_ += bracket;
  ++depth_;
  empty_ = true;
}

void JsonWriter::separate() {
  if (!empty_) {
    output_ += ',';
  }
  empty_ = false;
  breakLine();
}

void JsonWriter::close(char bracket) {
  --depth_;
  if (!empty_) {
    breakLine();
  }
  output_ += bracket;
  empty_ = false;
}

void JsonWriter::breakLine() {
  if (style_ == Style::pretty) {
    output_ += '\n';
    output_.append(static_cast<std::size_t>(2 * depth_), ' ');
  }
}

}  // namespace glintboard
