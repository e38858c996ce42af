// SPDX-License-Identifier: MIT
// The rules by which a deck is edited, without a window.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "protocol/deck_tile.h"

namespace glintboard::DeckEdits {

using Tiles = std::vector<DeckTile>;

// The tiles in slots 1, 2, 3 … in their order, as every edit below leaves them.
Tiles renumbered(Tiles tiles);
// At the end when `index` is beyond it.
Tiles inserted(Tiles tiles, DeckTile tile, std::size_t index);
// Taken from its place first: an index beyond the rest is the end. `from` must be a place.
Tiles moved(Tiles tiles, std::size_t from, std::size_t to);
// `index` must be a place.
Tiles removed(Tiles tiles, std::size_t index);
// In the order of their slots.
Tiles orderedBySlot(Tiles tiles);

// The place of the key that does the same as `like`, or none.
std::optional<std::size_t> indexOf(const Tiles& tiles, const DeckTile& like);
bool holdsShortcut(const Tiles& tiles);

// The Shortcut keys bear the names that their Shortcuts have now.
Tiles withShortcutNames(Tiles tiles, const std::vector<CatalogShortcut>& catalog);
// The identifiers of Shortcut keys whose Shortcuts are not there.
std::set<std::string> missingShortcutIDs(const Tiles& tiles,
                                         const std::vector<CatalogShortcut>& catalog);

}  // namespace glintboard::DeckEdits
