// SPDX-License-Identifier: MIT
#include "agent/editor/key_artwork.h"

#include <QQmlEngine>

#include "agent/editor/editor_icons.h"

namespace glintboard {
namespace {

std::optional<std::string> given(const QString& text) {
  return text.isEmpty() ? std::nullopt : std::optional(text.toStdString());
}

}  // namespace

KeyArtwork* KeyArtwork::create(QQmlEngine* engine, QJSEngine* /*scripts*/) {
  return new KeyArtwork(*engine);
}

TileAppearance KeyArtwork::appearance(const QString& kind, const QString& label,
                                      const QString& iconName, const QString& iconSymbol) const {
  DeckTile tile;
  tile.kind = fromRawValue<DeckTileKind>(kind.toStdString()).value_or(DeckTileKind::app);
  tile.label = label.toStdString();
  tile.iconName = given(iconName);
  tile.iconSymbol = given(iconSymbol);
  return TileAppearance::forTile(tile);
}

QVariant KeyArtwork::icon(const QString& source) const {
  auto* icons = dynamic_cast<EditorIconProvider*>(
      engine_.imageProvider(QLatin1String(EditorIcons::providerName)));
  if (source.isEmpty() || icons == nullptr) {
    return {};
  }
  const QImage icon = icons->requestImage(source.section(QLatin1Char('/'), -1), nullptr, {});
  return icon.isNull() ? QVariant() : QVariant(icon);
}

}  // namespace glintboard
