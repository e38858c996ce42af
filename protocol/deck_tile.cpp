// SPDX-License-Identifier: MIT
#include "protocol/deck_tile.h"

namespace glintboard {

std::string_view label(BuiltinAction action) {
  switch (action) {
    case BuiltinAction::volumeDown:
      return "Vol \u2212";
    case BuiltinAction::volumeUp:
      return "Vol +";
    case BuiltinAction::volumeMute:
      return "Mute";
  }
  return {};
}

std::string_view symbolName(BuiltinAction action) {
  switch (action) {
    case BuiltinAction::volumeDown:
      return "speaker.wave.1.fill";
    case BuiltinAction::volumeUp:
      return "speaker.wave.3.fill";
    case BuiltinAction::volumeMute:
      return "speaker.slash.fill";
  }
  return {};
}

DeckTile DeckTile::app(std::int64_t slot, std::string label, std::string bundleId,
                       std::optional<std::string> iconName,
                       std::optional<std::vector<std::string>> alternateBundleIds) {
  DeckTile tile;
  tile.slot = slot;
  tile.label = std::move(label);
  tile.bundleId = std::move(bundleId);
  tile.iconName = std::move(iconName);
  tile.alternateBundleIds = std::move(alternateBundleIds);
  tile.id = tile.derivedId();
  return tile;
}

DeckTile DeckTile::action(std::int64_t slot, BuiltinAction builtin) {
  DeckTile tile;
  tile.slot = slot;
  tile.kind = DeckTileKind::action;
  tile.label = glintboard::label(builtin);
  tile.actionId = rawValue(builtin);
  tile.iconSymbol = symbolName(builtin);
  tile.id = tile.derivedId();
  return tile;
}

DeckTile DeckTile::shortcut(std::int64_t slot, std::string label, std::string shortcutIdentifier,
                            std::string iconSymbol) {
  DeckTile tile;
  tile.slot = slot;
  tile.kind = DeckTileKind::shortcut;
  tile.label = std::move(label);
  tile.shortcutIdentifier = std::move(shortcutIdentifier);
  tile.iconSymbol = std::move(iconSymbol);
  tile.id = tile.derivedId();
  return tile;
}

DeckTile DeckTile::withSlot(std::int64_t newSlot) const {
  DeckTile tile = *this;
  tile.slot = newSlot;
  tile.id = tile.derivedId();
  return tile;
}

std::vector<std::string> DeckTile::lookupBundleIds() const {
  std::vector<std::string> identifiers = {bundleId};
  if (alternateBundleIds) {
    identifiers.insert(identifiers.end(), alternateBundleIds->begin(), alternateBundleIds->end());
  }
  return identifiers;
}

const std::string& DeckTile::derivedId() const {
  switch (kind) {
    case DeckTileKind::action:
      return actionId ? *actionId : bundleId;
    case DeckTileKind::shortcut:
      return shortcutIdentifier ? *shortcutIdentifier : bundleId;
    case DeckTileKind::app:
      break;
  }
  return bundleId;
}

}  // namespace glintboard
