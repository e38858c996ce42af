// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard {

// The most keys that a deck may hold. Enforced where decks are saved.
inline constexpr std::size_t deckCapacity = 24;

// A named deck. In files an object of these members, all required.
struct DeckTemplate {
  std::string id;  // of a built-in or stored deck: its category's raw value
  std::string name;
  std::vector<DeckTile> tiles;

  DeckTemplate() = default;
  // Sorts the tiles by slot; tiles of equal slots keep their order. Reading does not sort.
  DeckTemplate(std::string id, std::string name, std::vector<DeckTile> tiles);

  bool operator==(const DeckTemplate&) const = default;
};
BOOST_DESCRIBE_STRUCT(DeckTemplate, (), (id, name, tiles))

}  // namespace glintboard
