// SPDX-License-Identifier: MIT
#include <QPainter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "protocol/deck_templates.h"
#include "tools/pictures/scene.h"
#include "ui/design/symbols.h"
#include "ui/qml_engine.h"
#include "ui/tile/tile_appearance.h"

namespace glintboard {
namespace {

constexpr const char* controls = R"(
Rectangle {
  width: 680; height: 520
  gradient: Gradient {
    GradientStop { position: 0; color: Theme.windowTop }
    GradientStop { position: 1; color: Theme.windowBottom }
  }
  GlassPanel {
    x: 24; y: 24; width: 300; height: 472; raised: true
    Column {
      x: 16; y: 16; width: 268; spacing: 12
      Text { text: "Glintboard Agent"; font: Theme.fonts.ui(Theme.Headline, Theme.Semibold); color: Theme.text }
      Text { text: "STREAMING"; font: Theme.fonts.hero(Theme.Title); color: Theme.text }
      Text { text: Theme.teachingCaption; font: Theme.fonts.handCaption(Theme.Title3); color: Theme.accent }
      Text { text: "482 913"; font: Theme.fonts.mono(Theme.Title2, Theme.Semibold); color: Theme.text }
      Text { text: "Scan with iPhone"; font: Theme.fonts.ui(Theme.Footnote); color: Theme.secondaryText }
      Row { spacing: 8; PillButton { text: "Cancel" }
        PillButton { id: first; kind: PillButton.Primary; text: "Save to iPhone" } }
      Row { spacing: 8; PillButton { text: "Add"; symbolName: "plus" }
        PillButton { kind: PillButton.Primary; text: "Save to iPhone"; busy: true } }
      GlintTextField { width: parent.width; symbolName: "magnifyingglass"; placeholderText: "Search installed apps" }
      Divider { width: parent.width }
      Column { width: parent.width
        MenuRowButton { width: parent.width; text: "Edit Deck"; symbolName: "pencil" }
        MenuRowButton { width: parent.width; text: "Unpair iPhone"; symbolName: "personalhotspot.slash"; destructive: true }
        MenuRowButton { width: parent.width; text: "Quit"; symbolName: "power"; shortcutText: "Ctrl+Q" } }
    }
  }
  Grid {
    x: 348; y: 24; columns: 8; spacing: 12
    Repeater { model: symbolNames
      Symbol { required property string modelData; name: modelData; color: Theme.text; size: 28 } }
  }
  Spinner { x: 348; y: 300; size: 32; color: Theme.accent; delay: 0 }
  Row { x: 348; y: 360; spacing: 12
    Repeater { model: [Theme.success, Theme.warning, Theme.dangerVivid, Theme.inactive, Theme.accent]
      Rectangle { required property color modelData; width: 24; height: 24; radius: 12; color: modelData } } }
  Component.onCompleted: first.forceActiveFocus(Qt.TabFocusReason)
  property var symbolNames
})";

constexpr const char* tiles = R"(
Rectangle {
  width: 848; height: 560
  gradient: Gradient {
    GradientStop { position: 0; color: Theme.windowTop }
    GradientStop { position: 1; color: Theme.windowBottom }
  }
  property var keys
  property var sampleIcon
  property var sized: keys.find(key => key.label === "Krita").appearance
  Grid {
    x: 32; y: 32; columns: 8; columnSpacing: 24; rowSpacing: 24
    Repeater { model: keys
      GlassDeckTileView { required property var modelData
        appearance: modelData.appearance; displayLabel: modelData.label
        isRunning: modelData.running === true; isLaunching: modelData.launching === true
        didSucceed: modelData.succeeded === true; isLive: modelData.live === true
        isMissing: modelData.missing === true; TileIsPressedKey.tileIsPressed: modelData.pressed === true
        macIcon: modelData.hasIcon ? sampleIcon : undefined } }
    Repeater { model: 4
      EditModeJiggleModifier { id: wobbling; required property int index; isActive: true; seed: index
        GlassDeckTileView { appearance: keys[wobbling.index].appearance; displayLabel: keys[wobbling.index].label
          HomeScreenMinusBadge { x: -8; y: -8 } } } }
    Item { width: 72; height: 72
      GlassDeckTileView { anchors.centerIn: parent; appearance: sized; displayLabel: "Small"; isRunning: true; tileFaceSize: 48 } }
    // Last, because it is wider than its column.
    GlassDeckTileView { appearance: sized; displayLabel: "Large"; isRunning: true; tileFaceSize: 112 }
  }
})";

DeckTile named(DeckTile tile, const char* label) {
  tile.label = label;
  return tile;
}

QImage sampleIcon() {
  QImage icon(128, 128, QImage::Format_ARGB32_Premultiplied);
  icon.fill(Qt::transparent);
  QPainter painter(&icon);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xE95420));
  painter.drawEllipse(4, 4, 120, 120);
  painter.setPen(QPen(Qt::white, 10));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(36, 36, 56, 56);
  return icon;
}

QVariantMap key(const DeckTile& tile, const QVariantMap& state = {}) {
  QVariantMap map{{"appearance", QVariant::fromValue(TileAppearance::forTile(tile))},
                  {"label", QString::fromStdString(tile.label)}};
  map.insert(state);
  return map;
}

QVariantList sampleKeys() {
  QVariantList keys;
  for (const auto& tile : DeckTemplates::streaming().tiles) {
    keys += key(tile);
  }
  for (const auto& [action, id] : EnumText<BuiltinAction>::table) {
    keys += key(DeckTile::action(1, action));
  }
  keys += key(DeckTile::shortcut(1, "A Shortcut with a long name", "x",
                                 std::string(DeckTile::shortcutSymbolName)));
  const DeckTile letter = DeckTile::app(1, "Krita", "org.kde.krita");
  keys += key(letter);
  const DeckTile spotify = DeckTemplates::streaming().tiles[4];
  keys += key(named(spotify, "Running"), {{"running", true}});
  keys += key(named(spotify, "Launching"), {{"launching", true}});
  keys += key(named(spotify, "Success"), {{"succeeded", true}});
  keys += key(named(spotify, "Pressed"), {{"pressed", true}});
  keys += key(named(spotify, "Missing"), {{"missing", true}});
  keys += key(named(spotify, "Live"), {{"live", true}});
  keys += key(named(letter, "Icon"), {{"hasIcon", true}});
  keys += key(named(letter, "Icon, running"), {{"hasIcon", true}, {"running", true}});
  keys += key(named(letter, "Icon, gone"), {{"hasIcon", true}, {"missing", true}});
  return keys;
}

QImage grab(const char* source, const Appearance& appearance, const QVariantMap& properties) {
  QQmlEngine engine;
  prepareEngine(engine, appearance);
  QQmlComponent component(&engine);
  component.setData(QByteArray("import QtQuick\nimport Glintboard.UI\n") + source,
                    QUrl("qrc:/Gallery.qml"));
  QQuickWindow window;
  const std::unique_ptr<QQuickItem> root(
      qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
  if (!root) {
    qWarning("%s", qPrintable(component.errorString()));
    return {};
  }
  root->setParentItem(window.contentItem());
  window.resize(root->size().toSize());
  window.show();
  QTest::qWait(400);
  return window.grabWindow();
}

QImage drawControls(const Appearance& appearance) {
  return grab(controls, appearance, {{"symbolNames", Symbols::names()}});
}

QImage drawTiles(const Appearance& appearance) {
  return grab(tiles, appearance, {{"keys", sampleKeys()}, {"sampleIcon", sampleIcon()}});
}

}  // namespace

std::vector<Scene> galleryScenes() {
  constexpr Appearance light;
  constexpr Appearance dark{.dark = true};
  return {
      {"gallery-controls-light", 1, light, drawControls},
      {"gallery-controls-dark", 1, dark, drawControls},
      {"gallery-tiles-light", 1, light, drawTiles},
      {"gallery-tiles-dark", 1, dark, drawTiles},
      {"gallery-tiles-dark@2x", 2, dark, drawTiles},
  };
}

}  // namespace glintboard
