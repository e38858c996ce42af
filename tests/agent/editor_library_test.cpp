// SPDX-License-Identifier: MIT
#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "tests/agent/editor_fixture.h"
#include "tests/support/painted.h"

namespace glintboard {
namespace {

using test::turnUntil;

class EditorLibraryTest : public test::EditorTest {
 protected:
  void giveIcon(const std::string& identifier, Qt::GlobalColor color) {
    iconsOfShortcuts.push_back(
        {identifier, "stamp", [color](int side) { return test::painted(color, {side, side}); }});
  }
  void listAgain() {
    model->shortcuts()->load();
    EXPECT_EQ(model->shortcuts()->loadStateText(), "loading");
    ASSERT_TRUE(
        turnUntil([&] { return model->shortcuts()->loadState() != ShortcutsLoadState::loading; }));
  }
};

TEST_F(EditorLibraryTest, SearchFiltersEveryTab) {
  open();
  const QAbstractItemModelTester tester(model->apps()->cards());
  EXPECT_EQ(labels(model->cards()), "Discord, Music, Safari, Text Editor");
  model->setSearchText("S");
  EXPECT_EQ(labels(model->cards()), "Discord, Music, Safari");
  model->setSearchText("E");
  EXPECT_EQ(labels(model->cards()), "Text Editor");
  model->setLibraryTab("shortcuts");
  EXPECT_EQ(labels(model->cards()), "Brew");
  model->setLibraryTab("actions");
  EXPECT_EQ(labels(model->cards()), "Mute");
  EXPECT_EQ(model->cards()->index(0).data(DeckLibraryModel::SymbolNameRole), "speaker.slash.fill");
  model->add("system.volume.mute");
  EXPECT_EQ(model->cards()->index(0).data(DeckLibraryModel::IsInDeckRole), true);
  model->setSearchText("nothing like it");
  EXPECT_EQ(model->cards()->rowCount(), 0);
  model->setSearchText("");
  EXPECT_EQ(labels(model->cards()), "Vol \u2212, Vol +, Mute");
}

TEST_F(EditorLibraryTest, SuggestsAShortcutUntilASimilarOneExists) {
  listShortcuts("");
  app("cursor", "My cursor editor");
  desktop.root.write("system/applications/com.apple.shortcuts.desktop",
                     "[Desktop Entry]\nType=Application\nExec=no-such-program\nName=Shortcuts\n");
  open();
  auto* shortcuts = model->shortcuts();
  EXPECT_TRUE(shortcuts->showsSuggested());
  EXPECT_EQ(model->suggestedWarnings(), "Wispr Flow isn\u2019t installed.")
      << "names the missing application";
  EXPECT_TRUE(model->infoMessage().isNull());
  listShortcuts(std::string("echo 'my voice to cursor (") + briefId + ")'");
  listAgain();
  EXPECT_EQ(shortcuts->loadStateText(), "loaded");
  EXPECT_FALSE(shortcuts->showsSuggested());
  const auto hero = shortcuts->cards()->index(0);
  EXPECT_EQ(hero.data(DeckLibraryModel::SubtitleRole), "Voice prompt in Cursor");
  EXPECT_EQ(hero.data(DeckLibraryModel::SymbolNameRole), "mic.fill");
  EXPECT_TRUE(model->infoMessage().startsWith("Shortcut icons need Automation access"));
  giveIcon(briefId, Qt::blue);
  listAgain();
  EXPECT_TRUE(model->infoMessage().isNull());
  std::filesystem::remove(desktop.root / "shortcuts");
  listAgain();
  EXPECT_EQ(shortcuts->loadMessage(), "The shortcuts CLI is not available on this Mac.");
  EXPECT_FALSE(shortcuts->showsSuggested());
  EXPECT_EQ(shortcuts->cards()->rowCount(), 0);
  EXPECT_TRUE(model->errorMessage().isNull());
  shortcuts->open();
  EXPECT_TRUE(turnUntil([&] { return !model->errorMessage().isEmpty(); })) << "it does not start";
}

TEST_F(EditorLibraryTest, UpdatesKeysWhenShortcutsChange) {
  const std::string key = briefId;
  giveIcon("a0000000-0000-0000-0000-00000000000a", Qt::red);
  open();
  EXPECT_TRUE(model->drop({briefId}, 0));
  model->addShortcut(tidyId);
  const auto first = model->tilesModel()->index(0);
  EXPECT_EQ(first.data(DeckTilesModel::AccentRole).value<QColor>(), QColor(Qt::red));
  QSize size;
  EditorIconProvider provider(model->icons());
  const auto source = first.data(DeckTilesModel::IconSourceRole).toString();
  EXPECT_EQ(provider.requestImage(source.section('/', -1), &size, QSize(32, 32)).size(),
            QSize(32, 32));
  EXPECT_EQ(size, QSize(128, 128));
  save();

  listShortcuts("echo 'Brew twice (" + key + ")'");
  listAgain();
  EXPECT_EQ(keys(), "1 Brew twice, 2 Discord, 3 Safari, 4 Music, 5 Tidy up");
  EXPECT_EQ(model->syncLabel(), "Unsaved") << "the stored deck has the old name";
  EXPECT_EQ(model->missingShortcutIDs(), std::set<std::string>{tidyId});
  EXPECT_EQ(model->tilesModel()->index(4).data(DeckTilesModel::IsMissingShortcutRole), true);
  EXPECT_EQ(first.data(DeckTilesModel::IconSourceRole), source) << "an unchanged icon stays";
  EXPECT_TRUE(model->drop({tidyId}, 0)) << "a key without its Shortcut can be moved";
  EXPECT_EQ(model->tiles().front().label, "Tidy up");

  listShortcuts("exit 1");
  listAgain();
  EXPECT_TRUE(model->missingShortcutIDs().empty()) << "unknown after a failed listing";
}

TEST_F(EditorLibraryTest, LoadsIconsWithoutResettingTheList) {
  app("com.apple.Safari", "Safari", "plus", 120);
  open();
  auto* cards = model->apps()->cards();
  const QSignalSpy reset(cards, &QAbstractItemModel::modelReset);
  const auto safari = model->tilesModel()->index(1);
  ASSERT_TRUE(
      turnUntil([&] { return !safari.data(DeckTilesModel::IconSourceRole).toString().isEmpty(); }));
  EXPECT_EQ(cards->index(2).data(DeckLibraryModel::IconSourceRole),
            safari.data(DeckTilesModel::IconSourceRole));
  EXPECT_EQ(cards->index(2).data(DeckLibraryModel::IsInDeckRole), true);
  EXPECT_EQ(reset.count(), 0);
}

}  // namespace
}  // namespace glintboard
