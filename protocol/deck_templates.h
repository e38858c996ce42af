// SPDX-License-Identifier: MIT
// The built-in decks.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "protocol/deck_template.h"
#include "protocol/json_reader.h"

namespace glintboard {

// The fixed set of decks: each category has exactly one. The raw value is the deck's id in files
// and on the wire.
enum class DeckCategoryID { streaming, gaming };
template <>
struct EnumText<DeckCategoryID> {
  static constexpr EnumTable<2, DeckCategoryID> table{{
      {DeckCategoryID::streaming, "streaming"},
      {DeckCategoryID::gaming, "gaming"},
  }};
};
// The English name of the category, which is also the name of its built-in deck.
std::string_view displayName(DeckCategoryID category);

namespace DeckTemplates {

// The ids of the built-in decks.
inline constexpr std::string_view streamingDeckID = rawValue(DeckCategoryID::streaming);
inline constexpr std::string_view gamingDeckID = rawValue(DeckCategoryID::gaming);
// The order in which categories are listed and stored.
inline constexpr std::array categoryOrder = {DeckCategoryID::streaming, DeckCategoryID::gaming};

// The built-in decks. The phone and its protocol were made for a Mac, so these decks name
// applications by macOS bundle identifiers (`com.apple.finder` is the file manager,
// `com.apple.Terminal` the terminal); `platform/linux/identifier_table.h` maps them to the
// applications of this computer. Each deck is built on first use and shared afterwards. Any thread.
const DeckTemplate& streaming();
const DeckTemplate& gaming();
const DeckTemplate& bundledTemplate(DeckCategoryID category);

// The Streaming template as indented JSON: an example of the format.
std::string streamingJSON();
// Decodes any template from JSON text; the error says which member does not fit.
Decoded<DeckTemplate> loadStreaming(std::string_view json);

}  // namespace DeckTemplates
}  // namespace glintboard
