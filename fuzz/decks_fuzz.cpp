// SPDX-License-Identifier: MIT
// The decks file and the single deck of an earlier version. For any content the phone gets its
// decks, the user can save, and no deck is lost. A draft that can be read is written back the same.
#include "agent/decks/deck_drafts.h"
#include "fuzz/fuzz.h"
#include "platform/atomic_file.h"
#include "protocol/json_writer.h"
#include "tests/support/test_agent.h"

namespace glintboard {
namespace {

using Category = DeckCategoryID;

// Two applications of the built-in decks are installed.
class Decks {
 public:
  Decks() { desktop_.installed = {"com.spotify.client", "com.apple.Safari"}; }

  void use(const char* file, std::string_view content) {
    test::TemporaryFolder folder;
    folder.write(file, content);
    DeckStore store(executors_.service(), executors_.workers(), folder / "decks.json");
    const StoredDecks before = DecksReader(folder / "decks.json").read();

    const auto snapshots = run(store.deckSnapshots(workspace_, icons_, shortcutIcons_));
    fuzz::require(snapshots.size() == DeckTemplates::categoryOrder.size(),
                  "the phone gets a deck of each category");
    const StoredDecks after = DecksReader(folder / "decks.json").read();
    fuzz::require(after.state == StoredDecks::State::present, "the decks file is usable");
    const bool replaced = after.decks != before.decks;
    fuzz::require(!replaced || isKept(folder, content), "what the user had is kept");

    const auto deck = run(store.loadDeck(Category::gaming, workspace_));
    try {
      run(store.saveDeck(Category::gaming, deck.name, deck.tiles, workspace_));
    } catch (const std::runtime_error&) {
      return;  // the deck violates a rule of saving
    }
    const auto saved = run(store.loadDeck(Category::gaming, workspace_));
    fuzz::require(saved == DeckRules::validated(deck), "what was saved is what is loaded");
  }

 private:
  // Whether a file in the folder has the content, or one of its decks was adopted.
  bool isKept(const test::TemporaryFolder& folder, std::string_view content) {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
      if (readWholeFile(entry.path()) == content) {
        return true;
      }
    }
    const auto legacy = decodeJson<DeckTemplate>(content);
    const auto deck =
        run(DeckStore(executors_.service(), executors_.workers(), folder / "decks.json")
                .loadDeck(Category::streaming, workspace_));
    return legacy && deck.name == legacy->name && deck.tiles.size() == legacy->tiles.size();
  }

  template <class T>
  T run(Awaitable<T> operation) {
    return test::await(executors_.service(), std::move(operation));
  }

  test::FakeDesktop desktop_;
  WorkspaceClient workspace_ = desktop_.client();
  Executors executors_;
  AppIconProvider icons_{executors_.workerStrand(),
                         {[](const ApplicationLocation&) { return ContentModification{}; },
                          [](const ApplicationLocation&, int) { return QImage(); }}};
  ShortcutIconProvider shortcutIcons_{executors_.workerStrand(), test::noShortcutIcons()};
};

void useDraft(std::string_view content) {
  if (const auto draft = deckDraft(content, Category::gaming)) {
    fuzz::require(deckDraft(jsonText(*draft), Category::gaming) == draft,
                  "a draft reads back as the same");
  }
}

}  // namespace
}  // namespace glintboard

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Never destroyed: its threads end with the process.
  static auto& decks = *new glintboard::Decks();
  for (const char* file : {"decks.json", "deck.json"}) {
    decks.use(file, glintboard::fuzz::textOf(data, size));
  }
  glintboard::useDraft(glintboard::fuzz::textOf(data, size));
  return 0;
}
