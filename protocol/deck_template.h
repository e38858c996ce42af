// SPDX-License-Identifier: MIT
// Decks as the decks file stores them.
#pragma once

#include <string>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard {

// The most keys that a deck may hold. The deck store enforces it on saving; reading accepts more.
inline constexpr std::size_t deckCapacity = 24;

// A named deck. Stored as a JSON object of these members, all required. Not on the wire: phones get
// a `DeckSnapshotPayload`.
struct DeckTemplate {
  // The raw value of the deck's `DeckCategoryID`.
  std::string id;
  // The name shown to the user.
  std::string name;
  // In the order of the file, which need not be that of the slots.
  std::vector<DeckTile> tiles;

  DeckTemplate() = default;
  // Sorts the tiles by slot; tiles of equal slots keep their order. Reading does not sort.
  DeckTemplate(std::string id, std::string name, std::vector<DeckTile> tiles);

  bool operator==(const DeckTemplate&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeckTemplate, (), (id, name, tiles))

}  // namespace glintboard
