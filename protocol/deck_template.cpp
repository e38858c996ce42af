// SPDX-License-Identifier: MIT
#include "protocol/deck_template.h"

#include <algorithm>

namespace glintboard {

DeckTemplate::DeckTemplate(std::string givenId, std::string givenName,
                           std::vector<DeckTile> givenTiles)
    : id(std::move(givenId)), name(std::move(givenName)), tiles(std::move(givenTiles)) {
  std::ranges::stable_sort(tiles, {}, &DeckTile::slot);
}

}  // namespace glintboard
