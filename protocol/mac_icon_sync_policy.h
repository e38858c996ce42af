// SPDX-License-Identifier: MIT
// Which icons a client that keeps icons locally should ask for. Stateless; any thread.
//
// The phone and its protocol were made for a Mac: "Mac" in the name is the computer that the icons
// come from, of whatever system. `glintboard-phone` applies the policy as the phone does.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "protocol/deck_tile.h"

namespace glintboard::MacIconSyncPolicy {

// The most icon keys to put into one `app.icon.request`.
inline constexpr std::size_t iconRequestBatchSize = 12;

// The key under which the tile's icon is requested and stored: an application's bundle identifier,
// a Shortcut's identifier in lower case. None for actions and for a key without an identifier,
// whose glyphs the client draws.
std::optional<std::string> iconKey(const DeckTile& tile);

// A key in the form in which a client stores it: lower case if it has the shape of a UUID, as a
// Shortcut's identifier has; any other key unchanged.
std::string normalized(const std::string& key);

// The keys to request for `tiles`, each once, in ascending order: those without a local image, and
// those whose local image is outdated. `revisions` is `DeckSnapshotPayload::iconRevisions`;
// `imageExists` says whether a local image exists, `needsFetch` whether it is of another revision.
// A Shortcut's key is returned in the letter case that `revisions` uses.
std::vector<std::string> keysNeedingFetch(
    const std::vector<DeckTile>& tiles, const std::map<std::string, std::string>& revisions,
    const std::function<bool(const std::string& key)>& imageExists,
    const std::function<bool(const std::string& key, const std::string& revision)>& needsFetch);

}  // namespace glintboard::MacIconSyncPolicy
