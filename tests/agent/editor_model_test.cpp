// SPDX-License-Identifier: MIT
#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <random>

#include "tests/agent/editor_fixture.h"

namespace glintboard {
namespace {

using test::turnUntil;

using DeckEditorTest = test::EditorTest;

TEST_F(DeckEditorTest, DropInsertsMovesOrRefuses) {
  using Case = std::tuple<QStringList, int, bool, std::string>;
  const std::string before = "1 Discord, 2 Safari, 3 Music";
  open();
  auto* tiles = model->tilesModel();
  const QAbstractItemModelTester tester(tiles);
  QSignalSpy inserted(tiles, &QAbstractItemModel::rowsInserted);
  QSignalSpy moved(tiles, &QAbstractItemModel::rowsMoved);
  const QSignalSpy reset(tiles, &QAbstractItemModel::modelReset);
  for (const auto& [items, index, accepted, expected] : std::vector<Case>{
           {{"editor"}, 0, true, "1 Text Editor, 2 Discord, 3 Safari, 4 Music"},
           {{"editor", "com.apple.Music"}, 1, true, "1 Discord, 2 Text Editor, 3 Safari, 4 Music"},
           {{"editor"}, 17, true, "1 Discord, 2 Safari, 3 Music, 4 Text Editor"},
           {{"editor"}, -3, true, "1 Text Editor, 2 Discord, 3 Safari, 4 Music"},
           {{"system.volume.down"}, 3, true, "1 Discord, 2 Safari, 3 Music, 4 Vol \u2212"},
           {{briefId}, 1, true, "1 Discord, 2 Brew, 3 Safari, 4 Music"},
           {{"com.hnc.Discord"}, 10, true, "1 Safari, 2 Music, 3 Discord"},
           {{"com.hnc.Discord"}, 1, true, "1 Safari, 2 Discord, 3 Music"},
           {{"com.apple.Music"}, 0, true, "1 Music, 2 Discord, 3 Safari"},
           {{"com.apple.Safari"}, 1, true, before},
           {{"not.installed"}, 0, false, before},
           {{}, 0, false, before},
           {{"file://" +
             QString::fromStdString(
                 (desktop.root / "system/applications/editor.desktop").string()) +
             "\r\nfile:///other.desktop"},
            1,
            true,
            "1 Discord, 2 Text Editor, 3 Safari, 4 Music"},
           {{"/home/me/Desktop/discord.desktop"}, 2, true, "1 Safari, 2 Music, 3 Discord"},
           {{"applications:editor.desktop"}, 3, true, before + ", 4 Text Editor"},
           {{"file:///tmp/photo.png"}, 0, false, before}}) {
    inserted.clear();
    moved.clear();
    model->setDropTargetIndex(index);
    EXPECT_EQ(model->drop(items, index), accepted) << items.join(' ').toStdString();
    EXPECT_EQ(keys(), expected);
    EXPECT_EQ(inserted.count() + moved.count(), expected != before ? 1 : 0) << "in one step";
    EXPECT_EQ(model->dropTargetIndex(), -1);
    EXPECT_FALSE(model->isDeckDragActive());
    EXPECT_EQ(model->canUndo(), expected != before);
    model->undo();
    EXPECT_EQ(keys(), before);
    EXPECT_EQ(model->syncLabel(), "Synced");
  }
  EXPECT_EQ(reset.count(), 0);
  EXPECT_FALSE(model->move(3, 0));
  model->remove(24);
  model->remove(-1);
  EXPECT_EQ(keys(), before);
}

TEST(DeckTilesModel, UpdatesRowsForAnyChange) {
  DeckTilesModel model;
  const QAbstractItemModelTester tester(&model);
  std::mt19937 random(6);
  for (int round = 0; round < 300; ++round) {
    std::vector<DeckKey> keys;
    for (int i = 0; i < 8; ++i) {
      const auto id = std::to_string(i);
      if (random() % 4 != 0) {
        keys.push_back({.tile = DeckTile::app(i, id, id), .iconSource = {}, .accent = {}});
      }
    }
    std::ranges::shuffle(keys, random);
    if (round % 50 == 7) {
      keys.push_back(keys.front());  // a damaged deck
    }
    model.setKeys(keys);
    ASSERT_EQ(model.rowCount(), static_cast<int>(keys.size()));
    for (std::size_t row = 0; row < keys.size(); ++row) {
      ASSERT_EQ(model.index(static_cast<int>(row)).data(DeckTilesModel::TileIdRole).toString(),
                QString::fromStdString(keys[row].tile.id));
    }
  }
}

TEST_F(DeckEditorTest, RefusesDuplicatesWithAnError) {
  open();
  model->addAction("system.volume.up");
  model->addAction("system.volume.up");
  EXPECT_EQ(model->errorMessage(), "system.volume.up is already on the deck.");
  model->addShortcut(briefId);
  EXPECT_TRUE(model->errorMessage().isNull()) << "the next success clears it";
  model->addShortcut(briefId);
  EXPECT_EQ(model->errorMessage(), "That Shortcut is already on the deck.");
  model->undo();
  EXPECT_TRUE(model->errorMessage().isNull());
}

TEST_F(DeckEditorTest, UndoRevertsEditsOneByOne) {
  open();
  for (const auto* typed : {"S", "St", "Stream"}) {
    model->setDeckName(typed);
  }
  model->remove(0);
  model->setDeckName("Stream!");
  EXPECT_EQ(model->syncLabel(), "Unsaved");
  model->undo();
  EXPECT_EQ(model->deckName(), "Stream");
  model->undo();
  EXPECT_EQ(keys(), "1 Discord, 2 Safari, 3 Music");
  model->undo();
  EXPECT_EQ(model->deckName(), "Streaming");
  EXPECT_FALSE(model->canUndo());
  EXPECT_EQ(model->syncLabel(), "Synced");
  model->redo();
  model->redo();
  EXPECT_EQ(keys(), "1 Safari, 2 Music");
  save();
  EXPECT_TRUE(model->canUndo()) << "a save keeps the history";
  model->undo();
  EXPECT_EQ(model->syncLabel(), "Unsaved");
  model->addApp("editor");
  EXPECT_FALSE(model->canRedo());
  loadDeck("gaming");
  EXPECT_FALSE(model->canUndo());
  EXPECT_EQ(model->deckName(), "Gaming");
  loadDeck("streaming");
  EXPECT_EQ(keys(), "1 Safari, 2 Music") << "unsaved edits are gone";
}

TEST_F(DeckEditorTest, MarksRunningApplications) {
  running = {"com.apple.Safari"};
  open();
  const auto safari = model->tilesModel()->index(1);
  EXPECT_EQ(safari.data(DeckTilesModel::IsRunningRole), true);
  EXPECT_EQ(safari.siblingAtRow(2).data(DeckTilesModel::IsRunningRole), false);
  running.clear();
  model->refreshLive();
  EXPECT_EQ(safari.data(DeckTilesModel::IsRunningRole), false);
}

TEST_F(DeckEditorTest, TryingAKeyShowsItsOutcome) {
  open();
  model->addAction("system.volume.mute");
  const auto* tiles = model->tilesModel();
  const int action = tiles->count() - 1;
  const auto is = [&](int row, DeckTilesModel::Role role) {
    return tiles->index(row).data(role).toBool();
  };
  for (const int row : {0, 0, -1, tiles->count()}) {
    model->tryKey(row);
  }
  EXPECT_TRUE(is(0, DeckTilesModel::IsLaunchingRole));
  EXPECT_TRUE(turnUntil([&] { return is(0, DeckTilesModel::DidSucceedRole); }));
  EXPECT_EQ(trials, 1);
  EXPECT_FALSE(is(0, DeckTilesModel::IsLaunchingRole));
  EXPECT_TRUE(turnUntil([&] { return !is(0, DeckTilesModel::DidSucceedRole); }));
  failureOfActions = "No audio output device found.";
  model->tryKey(action);
  EXPECT_TRUE(is(action, DeckTilesModel::IsLaunchingRole));
  EXPECT_TRUE(turnUntil([&] { return !model->errorMessage().isEmpty(); }));
  EXPECT_EQ(model->errorMessage(), "Mute: No audio output device found.");
  EXPECT_FALSE(is(action, DeckTilesModel::IsLaunchingRole));
  EXPECT_FALSE(is(action, DeckTilesModel::DidSucceedRole));
}

TEST(EditHistory, DropsTheOldestSteps) {
  EditHistory history;
  for (std::size_t i = 0; i < EditHistory::capacity + 5; ++i) {
    history.record({{QString::number(i), {}}, std::nullopt});
  }
  QString last;
  while (const auto step = history.go(EditHistory::Direction::undo, {})) {
    last = step->shown.name;
  }
  EXPECT_EQ(last, "5");
}

TEST_F(DeckEditorTest, ShowsAndRepairsADamagedDeck) {
  desktop.root.write("agent/decks.json", R"({"version":1,"decks":[
      {"id":"streaming","name":"S","tiles":[
        {"slot":9,"label":"Safari","bundleId":"com.apple.Safari"},
        {"slot":2,"id":"odd","label":"Gone","bundleId":"com.gone"},
        {"slot":9,"label":"Again","bundleId":"com.apple.Safari"}]},
      {"id":"gaming","name":"G","tiles":[]}]})");
  open();
  EXPECT_EQ(keys(), "2 Gone, 9 Safari, 9 Again");
  EXPECT_EQ(model->syncLabel(), "Synced");
  const auto gone = model->tilesModel()->index(0);
  EXPECT_EQ(gone.data(DeckTilesModel::IsInstalledRole), false);
  EXPECT_TRUE(model->drop({gone.data(DeckTilesModel::PayloadRole).toString()}, 1));
  EXPECT_EQ(keys(), "1 Safari, 2 Gone, 3 Again");
  save();
  EXPECT_EQ(model->errorMessage(), "com.apple.Safari is already on the deck.");
  model->remove(2);
  save();
  EXPECT_EQ(model->syncLabel(), "Synced");
}

}  // namespace
}  // namespace glintboard
