// SPDX-License-Identifier: MIT
#include <algorithm>
#include <set>

#include "agent/decks/deck_store.h"
#include "agent/decks/deck_store_error.h"
#include "protocol/deck_template_filter.h"

namespace glintboard::DeckRules {
namespace {

using Code = DeckStoreError::Code;

std::vector<DeckTile> numbered(const std::vector<DeckTile>& tiles) {
  std::vector<DeckTile> result;
  result.reserve(tiles.size());
  for (const auto& tile : tiles) {
    result.push_back(tile.withSlot(static_cast<std::int64_t>(result.size()) + 1));
  }
  return result;
}

// Throws when the tile has no identity or one of its kind has the same.
void insertIdentity(std::set<std::string>& seen, const std::optional<std::string>& identity,
                    Code duplicate) {
  if (!identity) {
    throw DeckStoreError(Code::decodingFailed);
  }
  if (!seen.insert(*identity).second) {
    throw DeckStoreError(duplicate, *identity);
  }
}

}  // namespace

DeckTemplate adaptedTemplate(const DeckTemplate& deck, const WorkspaceClient& workspace) {
  const auto snapshot = DeckTemplateFilter::snapshot(
      deck, [&](const std::string& bundleId) { return workspace.isInstalled(bundleId); },
      [](const std::string&) { return false; });
  return {deck.id, deck.name, numbered(snapshot.tiles)};
}

std::vector<DeckTemplate> defaultDecks(const WorkspaceClient& workspace) {
  return normalizedDecks({}, workspace);
}

std::vector<DeckTemplate> normalizedDecks(const std::vector<DeckTemplate>& decks,
                                          const WorkspaceClient& workspace) {
  std::vector<DeckTemplate> result;
  for (const auto category : DeckTemplates::categoryOrder) {
    const auto stored = std::ranges::find(decks, rawValue(category), &DeckTemplate::id);
    result.push_back(stored != decks.end()
                         ? *stored
                         : adaptedTemplate(DeckTemplates::bundledTemplate(category), workspace));
  }
  return result;
}

DeckTemplate validated(const DeckTemplate& deck) {
  if (deck.tiles.size() > deckCapacity) {
    throw DeckStoreError(Code::tooManyTiles, std::to_string(deckCapacity));
  }
  std::set<std::string> applications;
  std::set<std::string> actions;
  std::set<std::string> shortcuts;
  for (const auto& tile : deck.tiles) {
    switch (tile.kind) {
      case DeckTileKind::app:
        insertIdentity(applications, tile.bundleId, Code::duplicateBundleId);
        break;
      case DeckTileKind::action:
        insertIdentity(actions, tile.actionId, Code::duplicateAction);
        break;
      case DeckTileKind::shortcut:
        insertIdentity(shortcuts, tile.shortcutIdentifier, Code::duplicateShortcut);
        break;
    }
  }
  return {deck.id, deck.name, numbered(deck.tiles)};
}

}  // namespace glintboard::DeckRules
