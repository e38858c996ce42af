// SPDX-License-Identifier: MIT
#include "protocol/mac_icon_sync_policy.h"

#include <algorithm>
#include <set>

#include "protocol/text.h"
#include "protocol/uuid.h"

namespace glintboard::MacIconSyncPolicy {
namespace {

using Revisions = std::map<std::string, std::string>;

// The entry of a key: under its own spelling, else in lower case, else under any letter case.
Revisions::const_iterator find(const Revisions& revisions, const std::string& key) {
  if (const auto exact = revisions.find(key); exact != revisions.end()) {
    return exact;
  }
  const std::string lower = lowercased(key);
  if (const auto inLowerCase = revisions.find(lower); inLowerCase != revisions.end()) {
    return inLowerCase;
  }
  return std::ranges::find_if(revisions,
                              [&](const auto& entry) { return lowercased(entry.first) == lower; });
}

}  // namespace

std::optional<std::string> iconKey(const DeckTile& tile) {
  switch (tile.kind) {
    case DeckTileKind::app:
      return tile.bundleId.empty() ? std::nullopt : std::optional(tile.bundleId);
    case DeckTileKind::shortcut:
      return tile.shortcutIdentifier ? std::optional(lowercased(*tile.shortcutIdentifier))
                                     : std::nullopt;
    case DeckTileKind::action:
      break;
  }
  return std::nullopt;
}

std::string normalized(const std::string& key) {
  return hasUuidShape(key) ? lowercased(key) : key;
}

std::vector<std::string> keysNeedingFetch(
    const std::vector<DeckTile>& tiles, const Revisions& revisions,
    const std::function<bool(const std::string&)>& imageExists,
    const std::function<bool(const std::string&, const std::string&)>& needsFetch) {
  std::set<std::string> needed;
  for (const auto& tile : tiles) {
    auto key = iconKey(tile);
    if (!key) {
      continue;
    }
    const auto revision = find(revisions, *key);
    if (tile.kind == DeckTileKind::shortcut && revision != revisions.end()) {
      key = revision->first;
    }
    if (!imageExists(*key) || (revision != revisions.end() && needsFetch(*key, revision->second))) {
      needed.insert(std::move(*key));
    }
  }
  return {needed.begin(), needed.end()};
}

}  // namespace glintboard::MacIconSyncPolicy
