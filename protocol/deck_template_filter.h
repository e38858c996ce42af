// SPDX-License-Identifier: MIT
// A deck fitted to the applications of this computer.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "protocol/deck_template.h"
#include "protocol/payloads.h"

namespace glintboard::DeckTemplateFilter {

// Whether something holds for the application of that bundle identifier.
using BundleIdPredicate = std::function<bool(const std::string& bundleId)>;

// The first of the tile's identifiers that is installed, or none.
std::optional<std::string> resolveBundleId(const DeckTile& tile,
                                           const BundleIdPredicate& whereInstalled);

// The tiles that the phone should see, in the deck's order and with its slots: actions and
// Shortcuts as they are, applications that are installed, an installed alternate in place of a
// missing identifier.
std::vector<DeckTile> resolvedTiles(const DeckTemplate& deck,
                                    const BundleIdPredicate& whereInstalled);
std::vector<DeckTile> visibleTiles(const DeckTemplate& deck,
                                   const std::set<std::string>& installedBundleIds);

// The resolved deck with its running applications, and no icon revisions.
DeckSnapshotPayload snapshot(const DeckTemplate& deck, const BundleIdPredicate& whereInstalled,
                             const BundleIdPredicate& whereRunning);
DeckSnapshotPayload snapshot(const DeckTemplate& deck,
                             const std::set<std::string>& installedBundleIds,
                             const std::set<std::string>& runningBundleIds);

// The identifiers of the running applications among `tiles`, in their order.
std::vector<std::string> runningBundleIds(const std::vector<DeckTile>& tiles,
                                          const BundleIdPredicate& whereRunning);
// Adds those of the deck as it would be resolved.
void appendRunningBundleIds(const DeckTemplate& deck, const BundleIdPredicate& whereInstalled,
                            const BundleIdPredicate& whereRunning,
                            std::vector<std::string>& output);

}  // namespace glintboard::DeckTemplateFilter
