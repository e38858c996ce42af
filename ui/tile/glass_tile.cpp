// SPDX-License-Identifier: MIT
#include "ui/tile/glass_tile.h"

#include <algorithm>

namespace glintboard {

GlassTile::GlassTile(QQuickItem* parent) : QQuickItem(parent) {
  connect(this, &GlassTile::appearanceChanged, this, &GlassTile::glyphChanged);
  connect(this, &GlassTile::iconSymbolChanged, this, &GlassTile::glyphChanged);
  connect(this, &GlassTile::appearanceChanged, this, &GlassTile::iconAccentChanged);
}

void GlassTile::setMacIcon(const QVariant& value) {
  const auto icon = value.value<QImage>();
  // The same image, not merely an equal one: comparing pixels costs more than drawing them.
  if (icon.cacheKey() != macIcon_.cacheKey()) {
    macIcon_ = icon;
    Q_EMIT macIconChanged();
  }
}

QColor GlassTile::iconAccent() const {
  if (iconAccent_.isValid() || appearance_.gradient.isEmpty()) {
    return iconAccent_;
  }
  return appearance_.gradient.front();
}

void GlassTile::setIconAccent(const QColor& accent) {
  if (accent != iconAccent_) {
    iconAccent_ = accent;
    Q_EMIT iconAccentChanged();
  }
}

void GlassTile::followPressing() {
  TileIsPressedKey* const key = TileIsPressedKey::of(this);
  if (key == pressedKey_) {
    return;
  }
  const bool before = isPressed();
  if (pressedKey_) {
    disconnect(pressedKey_, nullptr, this, nullptr);
  }
  pressedKey_ = key;
  if (key != nullptr) {
    connect(key, &TileIsPressedKey::tileIsPressedChanged, this, &GlassTile::isPressedChanged);
  }
  if (isPressed() != before) {
    Q_EMIT isPressedChanged();
  }
}

void GlassTile::componentComplete() {
  QQuickItem::componentComplete();
  followPressing();
}

void GlassTile::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemParentHasChanged) {
    followPressing();
  }
}

qreal GlassTile::captionSize() const {
  return std::max(11.0, std::min(15.0, 0.14 * faceSize()));
}

}  // namespace glintboard
