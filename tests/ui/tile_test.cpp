// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QImage>

#include "protocol/deck_templates.h"
#include "tests/ui/qml_view.h"
#include "ui/design/symbols.h"
#include "ui/tile/tile_appearance.h"

namespace glintboard {
namespace {

TileAppearance appearanceOf(const char* label, std::optional<std::string> iconName = {}) {
  return TileAppearance::forTile(DeckTile::app(1, label, "id", std::move(iconName)));
}

TEST(TileAppearance, UsesTheBrandsOfKnownApplications) {
  using Text = const char*;
  const std::tuple<Text, std::optional<std::string>, Text, Text> cases[] = {
      {"Spotify", {}, "music.note", "#40d973"},
      {"Anything", "terminal", "terminal.fill", "#475469"},
      // The name of artwork is matched exactly, and wins over the label.
      {"Spotify", "Spotify", "S", "#3882f5"},
      {"écran", {}, "é", "#3882f5"},
      {"👩‍💻 Code", {}, "👩‍💻", "#3882f5"},
      {"", {}, "", "#3882f5"}};
  for (const auto& [label, iconName, glyph, top] : cases) {
    const auto look = appearanceOf(label, iconName);
    EXPECT_EQ(look.glyph, QString::fromUtf8(glyph)) << label;
    ASSERT_EQ(look.gradient.size(), 2) << label;
    EXPECT_EQ(look.gradient[0].name(), top) << label;
  }
}

TEST(TileAppearance, HasASymbolForActionsShortcutsAndEveryBuiltInKey) {
  DeckTile action = DeckTile::action(1, BuiltinAction::volumeMute);
  EXPECT_EQ(TileAppearance::forTile(action).glyph, "speaker.slash.fill");
  action.iconSymbol.reset();
  EXPECT_EQ(TileAppearance::forTile(action).glyph, "slider.horizontal.3");
  DeckTile shortcut = DeckTile::shortcut(1, "Voice", "x", "mic.fill");
  EXPECT_EQ(TileAppearance::forTile(shortcut).glyph, "mic.fill");
  shortcut.iconSymbol.reset();
  EXPECT_EQ(TileAppearance::forTile(shortcut).glyph, "arrow.triangle.turn.up.right.diamond.fill");
  // Beyond the applications of the brand table, a key shows one letter.
  for (const auto& deck : {DeckTemplates::streaming(), DeckTemplates::gaming()}) {
    for (const auto& tile : deck.tiles) {
      const QString glyph = TileAppearance::forTile(tile).glyph;
      EXPECT_TRUE(glyph.size() == 1 || Symbols::isKnown(glyph)) << glyph.toStdString();
    }
  }
}

TEST(GlassDeckTileView, ShowsEachState) {
  const QByteArray source = R"(
Row {
  id: row
  property var look
  property bool on: false
  spacing: 40; padding: 20; width: 860; height: 150
  GlassDeckTileView { appearance: row.look }
  GlassDeckTileView { appearance: row.look; isRunning: row.on }
  GlassDeckTileView { appearance: row.look; isLaunching: row.on }
  GlassDeckTileView { appearance: row.look; didSucceed: row.on }
  GlassDeckTileView { appearance: row.look; isLive: row.on }
  GlassDeckTileView { appearance: row.look; isMissing: row.on }
  Item {
    width: 72; height: 90; TileIsPressedKey.tileIsPressed: row.on
    Item { GlassDeckTileView { appearance: row.look } }
  }
})";
  const QVariant look = QVariant::fromValue(appearanceOf("Spotify"));
  for (const Appearance& appearance :
       {Appearance{false, false, false, 1}, Appearance{true, true, true, 1}}) {
    QmlView view(source, appearance, {{"look", look}});
    const auto tiles = [&] {
      const QImage all = view.grab();
      QList<QImage> each;
      for (int i = 0; i < 7; ++i) {
        each.append(all.copy(112 * i + 4, 0, 104, 120));
      }
      return each;
    };
    const auto idle = tiles();
    view.root->setProperty("on", true);
    QTest::qWait(400);
    const auto shown = tiles();
    EXPECT_TRUE(shown[0] == idle[0]);
    for (int i = 1; i < 7; ++i) {
      EXPECT_FALSE(shown.sliced(0, i).contains(shown[i])) << "state " << i;
    }
    view.root->setProperty("on", false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tiles() == idle; }, 2000));
  }
}

TEST(GlassDeckTileView, DrawsTheApplicationsOwnIconInsteadOfTheGlyph) {
  QImage icon(64, 64, QImage::Format_ARGB32);
  icon.fill(Qt::yellow);
  QmlView view("GlassDeckTileView {}", {},
               {{"appearance", QVariant::fromValue(appearanceOf("Spotify"))}, {"macIcon", icon}});
  EXPECT_EQ(view.grab().pixelColor(36, 36), QColor(Qt::yellow));
  view.root->setProperty("macIcon", QVariant());
  view.root->setProperty("iconSymbol", "minus");
  QTest::qWait(50);
  // The bar of the minus is 0.46 of the face wide, and nothing is above it.
  const QImage face = view.grab();
  const auto isWhite = [&](int x, int y) { return face.pixelColor(x, y) == QColor(Qt::white); };
  EXPECT_TRUE(isWhite(36, 36) && isWhite(21, 36) && isWhite(50, 36));
  EXPECT_FALSE(isWhite(36, 26) || isWhite(18, 36) || isWhite(53, 36));
}

}  // namespace
}  // namespace glintboard
