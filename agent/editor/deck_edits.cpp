// SPDX-License-Identifier: MIT
#include "agent/editor/deck_edits.h"

#include <algorithm>
#include <unordered_map>

namespace glintboard::DeckEdits {
namespace {

auto iteratorAt(Tiles& tiles, std::size_t index) {
  return tiles.begin() + static_cast<std::ptrdiff_t>(std::min(index, tiles.size()));
}

}  // namespace

Tiles renumbered(Tiles tiles) {
  std::int64_t slot = 0;
  for (auto& tile : tiles) {
    tile = tile.withSlot(++slot);
  }
  return tiles;
}

Tiles inserted(Tiles tiles, DeckTile tile, std::size_t index) {
  tiles.insert(iteratorAt(tiles, index), std::move(tile));
  return renumbered(std::move(tiles));
}

Tiles moved(Tiles tiles, std::size_t from, std::size_t to) {
  DeckTile tile = std::move(tiles.at(from));
  tiles.erase(iteratorAt(tiles, from));
  return inserted(std::move(tiles), std::move(tile), to);
}

Tiles removed(Tiles tiles, std::size_t index) {
  tiles.erase(iteratorAt(tiles, index));
  return renumbered(std::move(tiles));
}

Tiles orderedBySlot(Tiles tiles) {
  std::ranges::stable_sort(tiles, {}, &DeckTile::slot);
  return tiles;
}

std::optional<std::size_t> indexOf(const Tiles& tiles, const DeckTile& like) {
  const auto found = std::ranges::find_if(tiles, [&](const DeckTile& tile) {
    return tile.kind == like.kind && tile.derivedId() == like.derivedId();
  });
  return found == tiles.end() ? std::nullopt : std::optional<std::size_t>(found - tiles.begin());
}

bool holdsShortcut(const Tiles& tiles) {
  return std::ranges::count(tiles, DeckTileKind::shortcut, &DeckTile::kind) != 0;
}

Tiles withShortcutNames(Tiles tiles, const std::vector<CatalogShortcut>& catalog) {
  std::unordered_map<std::string, std::string> names;
  for (const auto& shortcut : catalog) {
    names.emplace(shortcut.identifier, shortcut.name);
  }
  for (auto& tile : tiles) {
    if (tile.kind != DeckTileKind::shortcut || !tile.shortcutIdentifier) {
      continue;
    }
    const auto name = names.find(*tile.shortcutIdentifier);
    if (name != names.end() && name->second != tile.label) {
      tile =
          DeckTile::shortcut(tile.slot, name->second, *tile.shortcutIdentifier,
                             tile.iconSymbol.value_or(std::string(DeckTile::shortcutSymbolName)));
    }
  }
  return tiles;
}

std::set<std::string> missingShortcutIDs(const Tiles& tiles,
                                         const std::vector<CatalogShortcut>& catalog) {
  std::set<std::string> missing;
  for (const auto& tile : tiles) {
    if (tile.kind == DeckTileKind::shortcut && tile.shortcutIdentifier) {
      missing.insert(*tile.shortcutIdentifier);
    }
  }
  for (const auto& shortcut : catalog) {
    missing.erase(shortcut.identifier);
  }
  return missing;
}

}  // namespace glintboard::DeckEdits
