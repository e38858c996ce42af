// SPDX-License-Identifier: MIT
// The built-in decks.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "protocol/deck_template.h"
#include "protocol/json_reader.h"

namespace glintboard {

enum class DeckCategoryID { streaming, gaming };
template <>
struct EnumText<DeckCategoryID> {
  static constexpr EnumTable<2, DeckCategoryID> table{{
      {DeckCategoryID::streaming, "streaming"},
      {DeckCategoryID::gaming, "gaming"},
  }};
};
std::string_view displayName(DeckCategoryID category);

namespace DeckTemplates {

inline constexpr std::string_view streamingDeckID = rawValue(DeckCategoryID::streaming);
inline constexpr std::string_view gamingDeckID = rawValue(DeckCategoryID::gaming);
// The order in which categories are listed and stored.
inline constexpr std::array categoryOrder = {DeckCategoryID::streaming, DeckCategoryID::gaming};

// Each is built on first use and shared afterwards. Any thread.
const DeckTemplate& streaming();
const DeckTemplate& gaming();
const DeckTemplate& bundledTemplate(DeckCategoryID category);

// The Streaming template as indented JSON, for whoever wants to see the format.
std::string streamingJSON();
// A template from JSON text.
Decoded<DeckTemplate> loadStreaming(std::string_view json);

}  // namespace DeckTemplates
}  // namespace glintboard
