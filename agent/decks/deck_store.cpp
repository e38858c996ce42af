#include "agent/decks/deck_store.h"

#include <algorithm>

#include "agent/decks/deck_store_error.h"
#include "platform/live.h"
#include "platform/log.h"
#include "platform/run_on.h"
#include "protocol/deck_template_filter.h"

namespace glintboard {
namespace {

using State = StoredDecks::State;

// Whether the phone can be served from what is stored.
bool isComplete(const StoredDecks& stored) {
  return stored.state == State::present &&
         stored.decks.size() >= DeckTemplates::categoryOrder.size();
}

DeckTemplateFilter::BundleIdPredicate installed(const WorkspaceClient& workspace) {
  return [&workspace](const std::string& bundleId) { return workspace.isInstalled(bundleId); };
}

DeckTemplateFilter::BundleIdPredicate running(const WorkspaceClient& workspace) {
  return [&workspace](const std::string& bundleId) { return workspace.isRunning(bundleId); };
}

// Makes an earlier version's deck the Streaming deck. False when it is not valid.
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
      storageURL_(storageURL ? std::move(*storageURL) : applicationSupportFolder() / "decks.json"),
      legacyURL_(storageURL_.parent_path() / "deck.json"),
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
  const auto stored = co_await migratedDecks(workspace);
  const auto decks = DeckRules::normalizedDecks(stored.decks, workspace);
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
  const StoredDecks stored = readDecks(storageURL_);
  if (stored.state == State::unavailable) {
    // The other decks cannot be kept if they cannot be read.
    throw std::system_error(stored.error, storageURL_.string());
  }
  Decks decks = DeckRules::normalizedDecks(stored.decks, workspace);
  const auto place = std::ranges::find(decks, rawValue(category), &DeckTemplate::id);
  if (place == decks.end()) {
    throw DeckStoreError(DeckStoreError::Code::unknownCategory, std::string(rawValue(category)));
  }
  *place = DeckRules::validated(deck);
  DeckTemplate result = *place;
  co_await writeDecks(std::move(decks), stored.state == State::unusable);
  co_return result;
}

Awaitable<std::vector<DeckSnapshotPayload>> DeckStore::doDeckSnapshots(
    const WorkspaceClient& workspace, AppIconProvider& iconProvider,
    ShortcutIconProvider& shortcutIconProvider) {
  const Decks decks = co_await servedDecks(workspace);
  std::vector<DeckSnapshotPayload> snapshots;
  for (const auto& deck : decks) {
    auto payload = DeckTemplateFilter::snapshot(deck, installed(workspace), running(workspace));
    payload.iconRevisions =
        co_await iconRevisions(payload.tiles, workspace, iconProvider, shortcutIconProvider);
    snapshots.push_back(std::move(payload));
  }
  co_return snapshots;
}

Awaitable<std::map<std::string, std::string>> DeckStore::iconRevisions(
    const std::vector<DeckTile>& tiles, const WorkspaceClient& workspace,
    AppIconProvider& iconProvider, ShortcutIconProvider& shortcutIconProvider) {
  std::vector<std::string> bundleIds;
  std::vector<std::string> shortcuts;
  for (const auto& tile : tiles) {
    if (tile.kind == DeckTileKind::app) {
      bundleIds.push_back(tile.bundleId);
    } else if (tile.kind == DeckTileKind::shortcut && tile.shortcutIdentifier) {
      shortcuts.push_back(*tile.shortcutIdentifier);
    }
  }
  auto revisions = co_await iconProvider.revisions(std::move(bundleIds), workspace);
  if (!shortcuts.empty()) {
    co_await shortcutIconProvider.preloadAll();
  }
  for (const auto& identifier : shortcuts) {
    auto revision = co_await shortcutIconProvider.revision(identifier);
    if (revision) {
      revisions[identifier] = std::move(*revision);
    }
  }
  co_return revisions;
}

Awaitable<std::vector<std::string>> DeckStore::doRunningDeckBundleIds(
    const WorkspaceClient& workspace) {
  const Decks decks = co_await servedDecks(workspace);
  std::vector<std::string> bundleIds;
  for (const auto& deck : decks) {
    const auto tiles = DeckTemplateFilter::resolvedTiles(deck, installed(workspace));
    auto ofDeck = DeckTemplateFilter::runningBundleIds(tiles, running(workspace));
    bundleIds.insert(bundleIds.end(), std::make_move_iterator(ofDeck.begin()),
                     std::make_move_iterator(ofDeck.end()));
  }
  co_return bundleIds;
}

Awaitable<DeckStore::Decks> DeckStore::servedDecks(const WorkspaceClient& workspace) {
  StoredDecks stored = co_await migratedDecks(workspace);
  if (stored.state != State::unavailable && !isComplete(stored)) {
    co_await replaceUnusableFile(workspace);
    stored.decks.clear();
  }
  co_return DeckRules::normalizedDecks(stored.decks, workspace);
}

Awaitable<StoredDecks> DeckStore::migratedDecks(const WorkspaceClient& workspace) {
  StoredDecks stored = readDecks(storageURL_);
  if (stored.state == State::absent) {
    co_await migrateLegacyIfNeeded(workspace);
    stored = readDecks(storageURL_);
  }
  co_return stored;
}

Awaitable<> DeckStore::migrateLegacyIfNeeded(const WorkspaceClient& workspace) {
  const auto guard = co_await changes_.acquire();
  if (readDecks(storageURL_).state != State::absent) {
    co_return;  // made while this waited
  }
  try {
    const auto legacy = readLegacyDeck(legacyURL_);
    Decks decks = DeckRules::defaultDecks(workspace);
    const bool kept = legacy && adopt(*legacy, decks.front());
    co_await writeDecks(std::move(decks));
    // The decks are safely on disk now. A legacy deck that was not taken over stays with the user.
    std::error_code ignored;
    if (kept) {
      std::filesystem::remove(legacyURL_, ignored);
    } else if (legacy) {
      std::filesystem::rename(legacyURL_, legacyURL_.string() + ".bak", ignored);
    }
  } catch (const std::exception& error) {
    log::warning("the first decks were not written: ", error.what());
  }
}

Awaitable<> DeckStore::replaceUnusableFile(const WorkspaceClient& workspace) {
  const auto guard = co_await changes_.acquire();
  const StoredDecks stored = readDecks(storageURL_);
  if (stored.state == State::unavailable || isComplete(stored)) {
    co_return;
  }
  try {
    co_await writeDecks(DeckRules::defaultDecks(workspace), stored.state != State::absent);
  } catch (const std::exception& error) {
    log::warning("the decks file was not replaced: ", error.what());
  }
}

Awaitable<> DeckStore::writeDecks(Decks decks, bool keepingBackup) {
  DecksFile file;
  for (const auto& deck : decks) {
    file.decks.push_back(DeckRules::validated(deck));
  }
  auto writing = runOn(workers_, [path = storageURL_, file = std::move(file), keepingBackup] {
    if (keepingBackup) {
      keepBackup(path);
    }
    writeDecksFile(path, file);
  });
  co_await std::move(writing);
}

}  // namespace glintboard
