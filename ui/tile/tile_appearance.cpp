// SPDX-License-Identifier: MIT
#include "ui/tile/tile_appearance.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <iterator>

#include "ui/design/deck_brand_palette.h"

namespace glintboard {

namespace {

using DeckBrandPalette::RGB;

struct Brand {
  const char* key;
  const char* glyph;
  RGB top;
  RGB bottom;
};

constexpr RGB systemPurple{0xAF / 255.0, 0x52 / 255.0, 0xDE / 255.0};

constexpr Brand brands[] = {
    {"obs", "video.fill", systemPurple, {0.45, 0.16, 0.85}},
    {"discord", "bubble.left.and.bubble.right.fill", {0.65, 0.55, 0.98}, {0.49, 0.23, 0.93}},
    {"chrome", "globe", {0.22, 0.74, 0.97}, {0.01, 0.52, 0.78}},
    {"safari", "safari.fill", {0.22, 0.74, 0.97}, {0.15, 0.39, 0.92}},
    {"spotify", "music.note", {0.25, 0.85, 0.45}, {0.09, 0.64, 0.29}},
    {"twitch", "play.tv.fill", {0.67, 0.33, 0.97}, {0.45, 0.11, 0.69}},
    {"streamlabs", "waveform", {0.31, 0.82, 0.77}, {0.05, 0.58, 0.53}},
    {"messages", "message.fill", {0.3, 0.85, 0.39}, {0.09, 0.64, 0.23}},
    {"music", "music.note.list", {0.98, 0.44, 0.52}, {0.88, 0.11, 0.28}},
    {"terminal", "terminal.fill", {0.28, 0.33, 0.41}, {0.12, 0.16, 0.23}},
    {"finder", "folder.fill", {0.22, 0.74, 0.97}, {0.15, 0.39, 0.92}},
    {"settings", "gearshape.fill", {0.61, 0.64, 0.69}, {0.29, 0.33, 0.39}},
};

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

TileAppearance look(const QString& glyph, const RGB& top, const RGB& bottom) {
  return {glyph, {top.color(), bottom.color()}};
}

TileAppearance applicationLook(const DeckTile& tile) {
  const QString label = text(tile.label);
  const QString key = tile.iconName ? text(*tile.iconName) : label.toLower();
  const auto* brand =
      std::ranges::find_if(brands, [&](const Brand& one) { return key == QLatin1String(one.key); });
  if (brand != std::end(brands)) {
    return look(QLatin1String(brand->glyph), brand->top, brand->bottom);
  }
  return look(TileAppearance::firstCharacter(label), {0.22, 0.51, 0.96}, {0.11, 0.31, 0.85});
}

}  // namespace

QString TileAppearance::firstCharacter(const QString& label) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, label);
  const auto end = finder.toNextBoundary();
  return end < 0 ? QString() : label.left(end);
}

TileAppearance TileAppearance::forTile(const DeckTile& tile) {
  switch (tile.kind) {
    case DeckTileKind::app:
      return applicationLook(tile);
    case DeckTileKind::action:
      return look(text(tile.iconSymbol.value_or("slider.horizontal.3")), {0.2, 0.72, 0.98},
                  {0.04, 0.52, 1.0});
    case DeckTileKind::shortcut:
      return look(text(tile.iconSymbol.value_or(std::string(DeckTile::shortcutSymbolName))),
                  {0.98, 0.55, 0.2}, {0.92, 0.28, 0.35});
  }
  return {};
}

}  // namespace glintboard
