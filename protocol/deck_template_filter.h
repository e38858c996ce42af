// SPDX-License-Identifier: MIT
// A deck fitted to the applications of this computer. Stateless; any thread, as far as the
// predicates allow. Predicates are called synchronously, possibly several times with the same
// identifier; what they throw passes through.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "protocol/deck_template.h"
#include "protocol/payloads.h"

namespace glintboard::DeckTemplateFilter {

// Whether something holds for the application of that bundle identifier: that it is installed, or
// that it is running.
using BundleIdPredicate = std::function<bool(const std::string& bundleId)>;

// The first installed identifier of the tile: `bundleId`, else the first installed alternate. None
// if the application is not installed.
std::optional<std::string> resolveBundleId(const DeckTile& tile,
                                           const BundleIdPredicate& whereInstalled);

// The tiles that the phone shows, in the deck's order and with its slots: actions and Shortcuts
// unchanged, installed applications, and an installed alternate in place of a missing identifier.
// Slots of left-out tiles stay empty.
std::vector<DeckTile> resolvedTiles(const DeckTemplate& deck,
                                    const BundleIdPredicate& whereInstalled);
// The same for a set of installed identifiers.
std::vector<DeckTile> visibleTiles(const DeckTemplate& deck,
                                   const std::set<std::string>& installedBundleIds);

// The resolved deck with its running applications. `iconRevisions` is left empty; the deck store
// fills it.
DeckSnapshotPayload snapshot(const DeckTemplate& deck, const BundleIdPredicate& whereInstalled,
                             const BundleIdPredicate& whereRunning);
// The same for sets of installed and running identifiers.
DeckSnapshotPayload snapshot(const DeckTemplate& deck,
                             const std::set<std::string>& installedBundleIds,
                             const std::set<std::string>& runningBundleIds);

// The identifiers of the running applications among `tiles`, in their order; alternates are not
// considered, since `tiles` are resolved.
std::vector<std::string> runningBundleIds(const std::vector<DeckTile>& tiles,
                                          const BundleIdPredicate& whereRunning);
// Appends the identifiers of `deck`'s running applications as `snapshot` would list them, without
// building the tiles. Called for every ping.
void appendRunningBundleIds(const DeckTemplate& deck, const BundleIdPredicate& whereInstalled,
                            const BundleIdPredicate& whereRunning,
                            std::vector<std::string>& output);

}  // namespace glintboard::DeckTemplateFilter
