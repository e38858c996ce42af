// SPDX-License-Identifier: MIT
// Which icons a client that keeps icons locally should ask for.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard::MacIconSyncPolicy {

// The most icon keys to put into one request.
inline constexpr std::size_t iconRequestBatchSize = 12;

// The key under which the tile's icon is known, or none when it has no icon of the computer's.
std::optional<std::string> iconKey(const DeckTile& tile);

// A key in the form in which a client stores it: a Shortcut identifier in lower case, any other
// key unchanged.
std::string normalized(const std::string& key);

// The keys to request, each once: those without a local image, and those whose local image
// `needsFetch` calls outdated for the revision that the snapshot gives.
std::vector<std::string> keysNeedingFetch(
    const std::vector<DeckTile>& tiles, const std::map<std::string, std::string>& revisions,
    const std::function<bool(const std::string& key)>& imageExists,
    const std::function<bool(const std::string& key, const std::string& revision)>& needsFetch);

}  // namespace glintboard::MacIconSyncPolicy
