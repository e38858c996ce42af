// SPDX-License-Identifier: MIT
// The rules of editing a deck. Pure functions, any thread.
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

// Numbers the slots 1, 2, 3 … in the order of the tiles. Every edit below does so too.
Tiles renumbered(Tiles tiles);
// Appends the tile when `index` is beyond the end.
Tiles inserted(Tiles tiles, DeckTile tile, std::size_t index);
// `to` counts without the moved tile, and is the end when it is beyond. `from` must be valid.
Tiles moved(Tiles tiles, std::size_t from, std::size_t to);
// `index` must be valid.
Tiles removed(Tiles tiles, std::size_t index);
// Sorted by slot.
Tiles orderedBySlot(Tiles tiles);

// The index of the key that does the same as `like`, or none.
std::optional<std::size_t> indexOf(const Tiles& tiles, const DeckTile& like);
bool holdsShortcut(const Tiles& tiles);

// Renames the Shortcut keys to the current names of their Shortcuts.
Tiles withShortcutNames(Tiles tiles, const std::vector<CatalogShortcut>& catalog);
// The identifiers of Shortcut keys whose Shortcuts are not in the catalog.
std::set<std::string> missingShortcutIDs(const Tiles& tiles,
                                         const std::vector<CatalogShortcut>& catalog);

}  // namespace glintboard::DeckEdits
