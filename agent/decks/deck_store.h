// SPDX-License-Identifier: MIT
// The decks of the user.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "agent/decks/decks_file.h"
#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "platform/actor.h"
#include "platform/async_lock.h"
#include "platform/workspace_client.h"
#include "protocol/deck_templates.h"
#include "protocol/payloads.h"

namespace glintboard {

// The only reader and writer of the decks file. It keeps no decks in memory: every operation reads
// the file. Changes are serialised; reads do not wait for them. A file that cannot be read is never
// overwritten, and a file without usable decks is backed up before the built-in decks replace it.
//
// An actor of the service loop; files are written on the workers. The operations may be awaited on
// any executor. Their workspace and icon providers must outlive them.
class DeckStore : public Actor {
 public:
  // `storageURL` is the decks file, by default in the agent's data folder. Accesses no file.
  DeckStore(asio::any_io_executor executor, asio::any_io_executor workers,
            std::optional<std::filesystem::path> storageURL = std::nullopt);

  const std::filesystem::path& storageURL() const { return reader_.path(); }

  // The deck to edit: the stored one as it is, else the built-in one. Never fails.
  Awaitable<DeckTemplate> loadDeck(DeckCategoryID category, const WorkspaceClient& workspace);
  // Stores the deck with its tiles renumbered. Throws DeckStoreError or std::system_error; the
  // file is then unchanged.
  Awaitable<> saveDeck(DeckCategoryID category, std::string name, std::vector<DeckTile> tiles,
                       const WorkspaceClient& workspace);
  // Stores the built-in deck in place of the user's and returns it. Throws as saveDeck does.
  Awaitable<DeckTemplate> resetDeck(DeckCategoryID category, const WorkspaceClient& workspace);
  // The decks as the phone receives them: with the installed applications, the running ones, and
  // the revisions of the icons. Never fails.
  Awaitable<std::vector<DeckSnapshotPayload>> deckSnapshots(
      const WorkspaceClient& workspace, AppIconProvider& iconProvider,
      ShortcutIconProvider& shortcutIconProvider);
  // The running applications of all decks, in the order of the decks. An application on several
  // decks is listed once for each.
  Awaitable<std::vector<std::string>> runningDeckBundleIds(const WorkspaceClient& workspace);
  // The same without waiting; none when the file has to be created or replaced first. On the
  // actor's executor only.
  std::optional<std::vector<std::string>> runningDeckBundleIdsNow(const WorkspaceClient& workspace);
  // Waits for the changes that are being written.
  Awaitable<> finishChanges();

 private:
  using Decks = std::vector<DeckTemplate>;

  Awaitable<DeckTemplate> doLoadDeck(DeckCategoryID category, const WorkspaceClient& workspace);
  Awaitable<> doSaveDeck(DeckCategoryID category, std::string name, std::vector<DeckTile> tiles,
                         const WorkspaceClient& workspace);
  Awaitable<DeckTemplate> doResetDeck(DeckCategoryID category, const WorkspaceClient& workspace);
  Awaitable<std::vector<DeckSnapshotPayload>> doDeckSnapshots(
      const WorkspaceClient& workspace, AppIconProvider& iconProvider,
      ShortcutIconProvider& shortcutIconProvider);
  Awaitable<std::vector<std::string>> doRunningDeckBundleIds(const WorkspaceClient& workspace);
  Awaitable<> doFinishChanges();

  // The stored decks. Creates a missing file first, from an earlier version's deck if there is one.
  // Valid until the next await.
  Awaitable<const StoredDecks*> migratedDecks(const WorkspaceClient& workspace);
  Awaitable<> migrateLegacyIfNeeded(const WorkspaceClient& workspace);
  // The decks that the phone receives. Replaces an unusable file.
  Awaitable<Decks> servedDecks(const WorkspaceClient& workspace);
  Awaitable<> replaceUnusableFile(const WorkspaceClient& workspace);
  // Logs when the file becomes unreadable.
  void reportUnavailable(const StoredDecks& stored);
  // Replaces the category's deck by the validated one and writes all decks.
  Awaitable<DeckTemplate> store(DeckCategoryID category, DeckTemplate deck,
                                const WorkspaceClient& workspace);
  Awaitable<> writeDecks(Decks decks, bool keepingBackup = false);
  // The revisions of the icons of all these decks.
  Awaitable<std::map<std::string, std::string>> iconRevisions(
      const std::vector<DeckSnapshotPayload>& decks, const WorkspaceClient& workspace,
      AppIconProvider& iconProvider, ShortcutIconProvider& shortcutIconProvider);

  DecksReader reader_;
  std::filesystem::path legacyURL_;
  asio::any_io_executor workers_;
  AsyncLock changes_;
  // The earliest time of the next write of the built-in decks.
  std::chrono::steady_clock::time_point nextWrite_;
  bool wasUnavailable_ = false;
};

// The rules of stored decks. No file is accessed.
namespace DeckRules {

// The deck that a template gives on this computer: installed applications only, numbered from 1.
DeckTemplate adaptedTemplate(const DeckTemplate& deck, const WorkspaceClient& workspace);
// The adapted built-in decks in the order of the categories.
std::vector<DeckTemplate> defaultDecks(const WorkspaceClient& workspace);
// Exactly one deck for each category: the first of its id, else the adapted built-in one.
std::vector<DeckTemplate> normalizedDecks(const std::vector<DeckTemplate>& decks,
                                          const WorkspaceClient& workspace);
// The deck with its tiles numbered from 1. Throws DeckStoreError when it holds too many tiles, two
// of the same identity, or one without its identifier.
DeckTemplate validated(const DeckTemplate& deck);

}  // namespace DeckRules
}  // namespace glintboard
