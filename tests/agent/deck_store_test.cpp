// SPDX-License-Identifier: MIT
#include "agent/decks/deck_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>

#include "agent/decks/deck_store_error.h"
#include "platform/atomic_file.h"
#include "platform/executors.h"
#include "protocol/json_writer.h"
#include "tests/support/await.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/fakes.h"
#include "tests/support/temporary_folder.h"

namespace glintboard {
namespace {

using enum DeckCategoryID;

std::vector<DeckTile> applications(int count, std::int64_t firstSlot = 1) {
  std::vector<DeckTile> tiles;
  for (int i = 0; i < count; ++i) {
    tiles.push_back(DeckTile::app(firstSlot + 3 * i, "App", "app" + std::to_string(i)));
  }
  return tiles;
}

std::vector<std::string> summary(const std::vector<DeckTile>& tiles) {
  std::vector<std::string> lines;
  for (const auto& tile : tiles) {
    lines.push_back(std::to_string(tile.slot) + " " + tile.id);
  }
  return lines;
}

using Lines = std::vector<std::string>;

class DeckStoreTest : public testing::Test {
 protected:
  test::TemporaryFolder folder;
  test::FakeDesktop desktop;
  Executors executors;
  WorkspaceClient workspace = desktop.client();
  AppIconProvider icons{executors.workerStrand(),
                        {[](const ApplicationLocation&) { return ContentModification{}; },
                         [](const ApplicationLocation&, int) { return QImage(); }}};
  ShortcutIconProvider shortcutIcons{executors.workerStrand(), test::noShortcutIcons()};
  std::filesystem::path path = folder / "data/decks.json";
  DeckStore store{executors.service(), executors.workers(), path};

  void SetUp() override {
    desktop.installed = {"com.discord.Discord", "com.apple.Safari", "com.valvesoftware.steam"};
  }

  template <class T>
  T run(Awaitable<T> operation) {
    return test::await(executors.service(), std::move(operation));
  }
  DeckTemplate load(DeckCategoryID category) { return run(store.loadDeck(category, workspace)); }
  void save(DeckCategoryID category, std::vector<DeckTile> tiles) {
    run(store.saveDeck(category, "Mine", std::move(tiles), workspace));
  }
  std::vector<DeckSnapshotPayload> snapshots() {
    return run(store.deckSnapshots(workspace, icons, shortcutIcons));
  }
  std::string content(const std::string& name) { return readWholeFile(path.parent_path() / name); }
};

TEST_F(DeckStoreTest, StoresTheInstalledBuiltInKeysOnFirstUse) {
  EXPECT_EQ(summary(load(streaming).tiles), (Lines{"1 com.discord.Discord", "2 com.apple.Safari"}));
  EXPECT_TRUE(content("decks.json").ends_with(R"("version":1})"));
  EXPECT_EQ(summary(load(gaming).tiles),
            (Lines{"1 com.valvesoftware.steam", "2 com.discord.Discord", "3 com.apple.Safari"}));
}

TEST_F(DeckStoreTest, SaveRenumbersValidatesAndReplacesOneDeck) {
  const auto untouched = load(gaming);
  auto tiles = applications(3, 3);
  tiles[0].id = "stale";
  save(streaming, tiles);
  EXPECT_EQ(load(streaming).name, "Mine");
  EXPECT_EQ(summary(load(streaming).tiles), (Lines{"1 app0", "2 app1", "3 app2"}));
  EXPECT_EQ(load(gaming), untouched);
  save(streaming, applications(24));

  const std::string before = content("decks.json");
  auto twice = applications(2);
  twice.push_back(twice[0]);
  const auto action = DeckTile::action(1, BuiltinAction::volumeUp);
  auto noAction = action;
  noAction.actionId.reset();
  const auto shortcut = DeckTile::shortcut(1, "S", "s", "x");
  const std::pair<std::vector<DeckTile>, const char*> bad[] = {
      {applications(25), "A deck can have at most 24 tiles."},
      {twice, "app0 is already on the deck."},
      {{action, action}, "system.volume.up is already on the deck."},
      {{shortcut, shortcut}, "That Shortcut is already on the deck."},
      {{noAction}, "Could not read the saved deck."},
      {{DeckTile::app(1, "\xff", "a")}, "Could not save the deck."},
  };
  for (const auto& [deck, message] : bad) {
    try {
      save(streaming, deck);
      ADD_FAILURE() << "saved: " << message;
    } catch (const DeckStoreError& error) {
      EXPECT_STREQ(error.what(), message);
    }
    EXPECT_EQ(content("decks.json"), before);
  }
  EXPECT_EQ(run(store.resetDeck(streaming, workspace)).name, "Streaming");
  EXPECT_EQ(summary(load(streaming).tiles), (Lines{"1 com.discord.Discord", "2 com.apple.Safari"}));
}

TEST_F(DeckStoreTest, MigratesTheDeckOfAnEarlierVersion) {
  const std::string tooMany = jsonText(DeckTemplate("old", "Old", applications(30)));
  const struct {
    const char* file;  // below "data"
    std::string content;
    const char* name;  // of the Streaming deck afterwards
    const char* kept;  // the file that has the content afterwards
    bool stays;        // whether "deck.json" exists afterwards
  } cases[] = {
      {"deck.json", tooMany, "Streaming", "deck.json.bak", false},
      {"deck.json", "no deck", "Streaming", "deck.json", true},
      {"deck.json/inside", "a folder in its place", "Streaming", "deck.json/inside", true},
      {"deck.json", jsonText(DeckTemplate("old", "Old", applications(3, 4))), "Old", nullptr,
       false},
  };
  for (const auto& [file, written, name, kept, stays] : cases) {
    std::filesystem::remove_all(folder / "data");
    folder.write(std::string("data/") + file, written);
    EXPECT_EQ(snapshots().size(), 2u);
    EXPECT_EQ(load(streaming).name, name) << written;
    EXPECT_TRUE(content("decks.json").ends_with(R"("version":1})")) << written;
    EXPECT_TRUE(kept == nullptr || content(kept) == written) << written;
    EXPECT_EQ(std::filesystem::exists(folder / "data/deck.json"), stays) << written;
  }
  EXPECT_EQ(summary(load(streaming).tiles), (Lines{"1 app0", "2 app1", "3 app2"}));
}

TEST_F(DeckStoreTest, BacksUpAnInvalidOrIncompleteFileBeforeReplacingIt) {
  const std::string half = jsonText(DecksFile{1, {DeckTemplate("gaming", "Mine", {})}});
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {"not decks", "Gaming", "decks.json.bak.1"}, {half, "Mine", "decks.json.bak.2"}};
  folder.write("data/decks.json.bak", "older");
  for (const auto& [stored, name, backup] : cases) {
    folder.write("data/decks.json", stored);
    EXPECT_EQ(load(streaming).name, "Streaming");
    EXPECT_EQ(load(gaming).name, name) << "completed for the editor";
    EXPECT_EQ(content("decks.json"), stored) << "loading writes nothing";
    EXPECT_EQ(snapshots()[1].name, "Gaming");
    EXPECT_EQ(content(backup), stored);
    EXPECT_TRUE(content("decks.json").starts_with(R"({"decks":[{"id":"streaming")"));
  }
  EXPECT_EQ(content("decks.json.bak"), "older");
}

TEST_F(DeckStoreTest, ReturnsDecksInAFixedOrder) {
  std::vector<DeckTemplate> stored;
  for (const char* id : {"gaming", "streaming", "other"}) {
    stored.emplace_back(id, std::string("My ") + id, std::vector<DeckTile>());
  }
  folder.write("data/decks.json", jsonText(DecksFile{7, stored}));
  const auto decks = snapshots();
  ASSERT_EQ(decks.size(), 2u);
  EXPECT_EQ(decks[0].name + decks[1].name, "My streamingMy gaming");
  save(gaming, {});
  EXPECT_EQ(content("decks.json").find("other"), std::string::npos);
}

TEST_F(DeckStoreTest, LeavesAnUnreadableFileAlone) {
  std::filesystem::create_directories(path);  // reading a folder fails
  EXPECT_EQ(snapshots()[0].name, "Streaming");
  EXPECT_THROW(save(streaming, {}), std::system_error);
  EXPECT_TRUE(std::filesystem::is_directory(path));
}

}  // namespace
}  // namespace glintboard
