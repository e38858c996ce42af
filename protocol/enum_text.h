// SPDX-License-Identifier: MIT
// Enumerations whose JSON form is a text. Each specialises `EnumText`; the JSON codec, the log and
// the command-line tools all use that one table.
#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace glintboard {

// Specialised for each such enumeration: `table` lists every case in order, each with the exact
// text that stands for it in messages and files. A text must not occur twice. The texts are part of
// the protocol and of stored files: they may be added to, but not changed.
template <class Enum>
struct EnumText;

// An enumeration that has a table.
template <class Enum>
concept TextEnum = requires { EnumText<Enum>::table; };

// The type of `EnumText<Enum>::table`.
template <std::size_t count, class Enum>
using EnumTable = std::array<std::pair<Enum, std::string_view>, count>;

// The text of a case; empty for a value that the table lacks. Points into static memory.
template <TextEnum Enum>
constexpr std::string_view rawValue(Enum value) {
  for (const auto& [known, text] : EnumText<Enum>::table) {
    if (known == value) {
      return text;
    }
  }
  return {};
}

// The case whose text is exactly `text`, letter case included; none for any other.
template <TextEnum Enum>
constexpr std::optional<Enum> fromRawValue(std::string_view text) {
  for (const auto& [value, known] : EnumText<Enum>::table) {
    if (known == text) {
      return value;
    }
  }
  return std::nullopt;
}

}  // namespace glintboard
