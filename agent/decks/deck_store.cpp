// SPDX-License-Identifier: MIT
#include "agent/decks/deck_store.h"

#include <algorithm>
#include <set>
#include <utility>

#include "agent/decks/deck_store_error.h"
#include "platform/live.h"
#include "platform/log.h"
#include "platform/run_on.h"
#include "protocol/deck_template_filter.h"

namespace glintboard {
namespace {

using Clock = std::chrono::steady_clock;

// The pause after a failed write of the built-in decks, which requests would repeat otherwise.
constexpr auto writePause = std::chrono::seconds(30);

// Whether the file holds every deck that the phone is served.
bool isComplete(const StoredDecks& stored) {
  return stored.state == StoredDecks::State::present &&
         stored.decks.size() >= DeckTemplates::categoryOrder.size();
}

// The key of a tile's icon, or null.
const std::string* iconKey(const DeckTile& tile) {
  if (tile.kind == DeckTileKind::app) {
    return &tile.bundleId;
  }
  return tile.kind == DeckTileKind::shortcut && tile.shortcutIdentifier ? &*tile.shortcutIdentifier
                                                                        : nullptr;
}

// The running applications of all served decks, in the order of the decks. Missing decks are
// replaced by the built-in ones.
std::vector<std::string> runningOf(const std::vector<DeckTemplate>& decks,
                                   const WorkspaceClient& workspace) {
  const ApplicationStates states = workspace.states();
  std::vector<std::string> bundleIds;
  const auto append = [&](const DeckTemplate& deck) {
    DeckTemplateFilter::appendRunningBundleIds(deck, states.isInstalled, states.isRunning,
                                               bundleIds);
  };
  for (const auto category : DeckTemplates::categoryOrder) {
    const auto deck = std::ranges::find(decks, rawValue(category), &DeckTemplate::id);
    if (deck != decks.end()) {
      append(*deck);
    } else {
      append(DeckRules::adaptedTemplate(DeckTemplates::bundledTemplate(category), workspace));
    }
  }
  return bundleIds;
}

Awaitable<std::map<std::string, std::string>> revisionsOf(
    std::vector<std::string> bundleIds, std::vector<std::string> shortcuts,
    const WorkspaceClient& workspace, AppIconProvider& iconProvider,
    ShortcutIconProvider& shortcutIconProvider) {
  auto revisions = co_await iconProvider.revisions(std::move(bundleIds), workspace);
  if (!shortcuts.empty()) {
    revisions.merge(co_await shortcutIconProvider.revisions(std::move(shortcuts)));
  }
  co_return revisions;
}

// Migrates an earlier version's deck to the Streaming deck. False when it is not valid.
bool adopt(const DeckTemplate& legacy, DeckTemplate& streaming) {
  try {
    streaming = DeckRules::validated(
        DeckTemplate(std::string(DeckTemplates::streamingDeckID), legacy.name, legacy.tiles));
    return true;
  } catch (const DeckStoreError& error) {
    log::warning("the deck of an earlier version: ", error.what());
    return false;
  }
}

}  // namespace

DeckStore::DeckStore(asio::any_io_executor executor, asio::any_io_executor workers,
                     std::optional<std::filesystem::path> storageURL)
    : Actor(std::move(executor)),
      reader_(storageURL ? std::move(*storageURL) : applicationSupportFolder() / "decks.json"),
      legacyURL_(reader_.path().parent_path() / "deck.json"),
      workers_(std::move(workers)),
      changes_(this->executor()) {}

Awaitable<DeckTemplate> DeckStore::loadDeck(DeckCategoryID category,
                                            const WorkspaceClient& workspace) {
  return enter(doLoadDeck(category, workspace));
}

Awaitable<> DeckStore::saveDeck(DeckCategoryID category, std::string name,
                                std::vector<DeckTile> tiles, const WorkspaceClient& workspace) {
  return enter(doSaveDeck(category, std::move(name), std::move(tiles), workspace));
}

Awaitable<DeckTemplate> DeckStore::resetDeck(DeckCategoryID category,
                                             const WorkspaceClient& workspace) {
  return enter(doResetDeck(category, workspace));
}

Awaitable<std::vector<DeckSnapshotPayload>> DeckStore::deckSnapshots(
    const WorkspaceClient& workspace, AppIconProvider& iconProvider,
    ShortcutIconProvider& shortcutIconProvider) {
  return enter(doDeckSnapshots(workspace, iconProvider, shortcutIconProvider));
}

Awaitable<std::vector<std::string>> DeckStore::runningDeckBundleIds(
    const WorkspaceClient& workspace) {
  return enter(doRunningDeckBundleIds(workspace));
}

Awaitable<> DeckStore::finishChanges() {
  return enter(doFinishChanges());
}

Awaitable<> DeckStore::doFinishChanges() {
  const auto guard = co_await changes_.acquire();
}

Awaitable<DeckTemplate> DeckStore::doLoadDeck(DeckCategoryID category,
                                              const WorkspaceClient& workspace) {
  const auto* stored = co_await migratedDecks(workspace);
  const auto decks = DeckRules::normalizedDecks(stored->decks, workspace);
  co_return *std::ranges::find(decks, rawValue(category), &DeckTemplate::id);
}

Awaitable<> DeckStore::doSaveDeck(DeckCategoryID category, std::string name,
                                  std::vector<DeckTile> tiles, const WorkspaceClient& workspace) {
  DeckTemplate deck;
  deck.id = rawValue(category);
  deck.name = std::move(name);
  deck.tiles = std::move(tiles);
  co_await store(category, std::move(deck), workspace);
}

Awaitable<DeckTemplate> DeckStore::doResetDeck(DeckCategoryID category,
                                               const WorkspaceClient& workspace) {
  auto fresh = DeckRules::adaptedTemplate(DeckTemplates::bundledTemplate(category), workspace);
  co_return co_await store(category, std::move(fresh), workspace);
}

Awaitable<DeckTemplate> DeckStore::store(DeckCategoryID category, DeckTemplate deck,
                                         const WorkspaceClient& workspace) {
  co_await migratedDecks(workspace);
  const auto guard = co_await changes_.acquire();
  const StoredDecks& stored = reader_.read();
  if (stored.state == StoredDecks::State::unavailable) {
    // Writing would lose the other decks.
    throw std::system_error(stored.error, storageURL().string());
  }
  Decks decks = DeckRules::normalizedDecks(stored.decks, workspace);
  const auto position = std::ranges::find(decks, rawValue(category), &DeckTemplate::id);
  if (position == decks.end()) {
    throw DeckStoreError(DeckStoreError::Code::unknownCategory, std::string(rawValue(category)));
  }
  *position = DeckRules::validated(deck);
  DeckTemplate result = *position;
  co_await writeDecks(std::move(decks), stored.state == StoredDecks::State::unusable);
  co_return result;
}

Awaitable<std::vector<DeckSnapshotPayload>> DeckStore::doDeckSnapshots(
    const WorkspaceClient& workspace, AppIconProvider& iconProvider,
    ShortcutIconProvider& shortcutIconProvider) {
  const Decks decks = co_await servedDecks(workspace);
  const ApplicationStates states = workspace.states();
  std::vector<DeckSnapshotPayload> snapshots;
  for (const auto& deck : decks) {
    snapshots.push_back(DeckTemplateFilter::snapshot(deck, states.isInstalled, states.isRunning));
  }
  const auto revisions =
      co_await iconRevisions(snapshots, workspace, iconProvider, shortcutIconProvider);
  for (auto& snapshot : snapshots) {
    for (const auto& tile : snapshot.tiles) {
      const auto* key = iconKey(tile);
      const auto found = key != nullptr ? revisions.find(*key) : revisions.end();
      if (found != revisions.end()) {
        snapshot.iconRevisions.insert(*found);
      }
    }
  }
  co_return snapshots;
}

Awaitable<std::map<std::string, std::string>> DeckStore::iconRevisions(
    const std::vector<DeckSnapshotPayload>& decks, const WorkspaceClient& workspace,
    AppIconProvider& iconProvider, ShortcutIconProvider& shortcutIconProvider) {
  std::set<std::string> bundleIds;
  std::set<std::string> shortcuts;
  for (const auto& deck : decks) {
    for (const auto& tile : deck.tiles) {
      if (const auto* key = iconKey(tile)) {
        (tile.kind == DeckTileKind::app ? bundleIds : shortcuts).insert(*key);
      }
    }
  }
  // On the provider's executor, which both providers share, to change threads only once.
  co_return co_await asio::co_spawn(
      iconProvider.executor(),
      revisionsOf({bundleIds.begin(), bundleIds.end()}, {shortcuts.begin(), shortcuts.end()},
                  workspace, iconProvider, shortcutIconProvider),
      asio::use_awaitable);
}

Awaitable<std::vector<std::string>> DeckStore::doRunningDeckBundleIds(
    const WorkspaceClient& workspace) {
  if (auto bundleIds = runningDeckBundleIdsNow(workspace)) {
    co_return std::move(*bundleIds);
  }
  const Decks decks = co_await servedDecks(workspace);
  co_return runningOf(decks, workspace);
}

std::optional<std::vector<std::string>> DeckStore::runningDeckBundleIdsNow(
    const WorkspaceClient& workspace) {
  const StoredDecks& stored = reader_.read();
  return isComplete(stored) ? std::optional(runningOf(stored.decks, workspace)) : std::nullopt;
}

Awaitable<DeckStore::Decks> DeckStore::servedDecks(const WorkspaceClient& workspace) {
  const auto mayWrite = [this] { return Clock::now() >= nextWrite_; };
  const auto* stored = &reader_.read();
  if (stored->state == StoredDecks::State::absent && mayWrite()) {
    stored = co_await migratedDecks(workspace);
  }
  reportUnavailable(*stored);
  if (stored->state == StoredDecks::State::unavailable || isComplete(*stored)) {
    co_return DeckRules::normalizedDecks(stored->decks, workspace);
  }
  if (mayWrite()) {
    co_await replaceUnusableFile(workspace);
  }
  co_return DeckRules::defaultDecks(workspace);
}

void DeckStore::reportUnavailable(const StoredDecks& stored) {
  const bool isUnavailable = stored.state == StoredDecks::State::unavailable;
  if (std::exchange(wasUnavailable_, isUnavailable) != isUnavailable && isUnavailable) {
    log::warning("the built-in decks are served, ", reader_.path().string(),
                 " cannot be read: ", stored.error.message());
  }
}

Awaitable<const StoredDecks*> DeckStore::migratedDecks(const WorkspaceClient& workspace) {
  const auto* stored = &reader_.read();
  if (stored->state == StoredDecks::State::absent) {
    co_await migrateLegacyIfNeeded(workspace);
    stored = &reader_.read();
  }
  co_return stored;
}

Awaitable<> DeckStore::migrateLegacyIfNeeded(const WorkspaceClient& workspace) {
  const auto guard = co_await changes_.acquire();
  if (reader_.read().state != StoredDecks::State::absent) {
    co_return;  // created by another operation
  }
  try {
    const auto legacy = readLegacyDeck(legacyURL_);
    Decks decks = DeckRules::defaultDecks(workspace);
    const bool migrated = legacy && adopt(*legacy, decks.front());
    co_await writeDecks(std::move(decks));
    // The decks are on disk. A legacy deck that is not valid is kept as a backup.
    std::error_code ignored;
    if (migrated) {
      std::filesystem::remove(legacyURL_, ignored);
    } else if (legacy) {
      std::filesystem::rename(legacyURL_, freeBackup(legacyURL_), ignored);
    }
  } catch (const std::exception& error) {
    log::warning("the first decks were not written: ", error.what());
    nextWrite_ = Clock::now() + writePause;
  }
}

Awaitable<> DeckStore::replaceUnusableFile(const WorkspaceClient& workspace) {
  const auto guard = co_await changes_.acquire();
  const StoredDecks& stored = reader_.read();
  if (stored.state == StoredDecks::State::unavailable || isComplete(stored)) {
    co_return;
  }
  try {
    co_await writeDecks(DeckRules::defaultDecks(workspace),
                        stored.state != StoredDecks::State::absent);
  } catch (const std::exception& error) {
    log::warning("the decks file was not replaced: ", error.what());
    nextWrite_ = Clock::now() + writePause;
  }
}

Awaitable<> DeckStore::writeDecks(Decks decks, bool keepingBackup) {
  DecksFile file;
  for (const auto& deck : decks) {
    file.decks.push_back(DeckRules::validated(deck));
  }
  auto writing = runOn(workers_, [path = storageURL(), file = std::move(file), keepingBackup] {
    if (keepingBackup) {
      keepBackup(path);
    }
    writeDecksFile(path, file);
  });
  co_await std::move(writing);
}

}  // namespace glintboard
