// SPDX-License-Identifier: MIT
#include "protocol/deck_template_filter.h"

namespace glintboard::DeckTemplateFilter {
namespace {

BundleIdPredicate containedIn(const std::set<std::string>& identifiers) {
  return [&identifiers](const std::string& bundleId) { return identifiers.contains(bundleId); };
}

const std::string* resolved(const DeckTile& tile, const BundleIdPredicate& whereInstalled) {
  if (whereInstalled(tile.bundleId)) {
    return &tile.bundleId;
  }
  if (tile.alternateBundleIds) {
    for (const auto& alternate : *tile.alternateBundleIds) {
      if (whereInstalled(alternate)) {
        return &alternate;
      }
    }
  }
  return nullptr;
}

}  // namespace

std::optional<std::string> resolveBundleId(const DeckTile& tile,
                                           const BundleIdPredicate& whereInstalled) {
  const std::string* found = resolved(tile, whereInstalled);
  return found != nullptr ? std::optional(*found) : std::nullopt;
}

std::vector<DeckTile> resolvedTiles(const DeckTemplate& deck,
                                    const BundleIdPredicate& whereInstalled) {
  std::vector<DeckTile> tiles;
  tiles.reserve(deck.tiles.size());
  for (const auto& tile : deck.tiles) {
    if (tile.kind != DeckTileKind::app) {
      tiles.push_back(tile);
      continue;
    }
    const std::string* installed = resolved(tile, whereInstalled);
    if (installed == nullptr) {
      continue;
    }
    tiles.push_back(installed == &tile.bundleId
                        ? tile
                        : DeckTile::app(tile.slot, tile.label, *installed, tile.iconName,
                                        tile.alternateBundleIds));
  }
  return tiles;
}

std::vector<DeckTile> visibleTiles(const DeckTemplate& deck,
                                   const std::set<std::string>& installedBundleIds) {
  return resolvedTiles(deck, containedIn(installedBundleIds));
}

DeckSnapshotPayload snapshot(const DeckTemplate& deck, const BundleIdPredicate& whereInstalled,
                             const BundleIdPredicate& whereRunning) {
  DeckSnapshotPayload payload;
  payload.deckId = deck.id;
  payload.name = deck.name;
  payload.tiles = resolvedTiles(deck, whereInstalled);
  payload.runningBundleIds = runningBundleIds(payload.tiles, whereRunning);
  return payload;
}

DeckSnapshotPayload snapshot(const DeckTemplate& deck,
                             const std::set<std::string>& installedBundleIds,
                             const std::set<std::string>& runningBundleIds) {
  return snapshot(deck, containedIn(installedBundleIds), containedIn(runningBundleIds));
}

std::vector<std::string> runningBundleIds(const std::vector<DeckTile>& tiles,
                                          const BundleIdPredicate& whereRunning) {
  std::vector<std::string> running;
  for (const auto& tile : tiles) {
    if (tile.kind == DeckTileKind::app && !tile.bundleId.empty() && whereRunning(tile.bundleId)) {
      running.push_back(tile.bundleId);
    }
  }
  return running;
}

void appendRunningBundleIds(const DeckTemplate& deck, const BundleIdPredicate& whereInstalled,
                            const BundleIdPredicate& whereRunning,
                            std::vector<std::string>& output) {
  for (const auto& tile : deck.tiles) {
    // Few applications run, so that is asked first where it decides.
    if (tile.kind != DeckTileKind::app ||
        (!tile.alternateBundleIds && !whereRunning(tile.bundleId))) {
      continue;
    }
    const std::string* found = resolved(tile, whereInstalled);
    if (found != nullptr && !found->empty() && whereRunning(*found)) {
      output.push_back(*found);
    }
  }
}

}  // namespace glintboard::DeckTemplateFilter
