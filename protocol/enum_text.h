// SPDX-License-Identifier: MIT
// Enumerations that travel as text.
#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace glintboard {

// Specialised for each enumeration that travels as text: `table` lists its cases in order, each
// with the exact string that stands for it.
template <class Enum>
struct EnumText;

template <class Enum>
concept TextEnum = requires { EnumText<Enum>::table; };

template <std::size_t count, class Enum>
using EnumTable = std::array<std::pair<Enum, std::string_view>, count>;

template <TextEnum Enum>
constexpr std::string_view rawValue(Enum value) {
  for (const auto& [known, text] : EnumText<Enum>::table) {
    if (known == value) {
      return text;
    }
  }
  return {};
}

// The case whose string is exactly `text`, or none.
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
