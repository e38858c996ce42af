// SPDX-License-Identifier: MIT
#include "ui/tile/tile_is_pressed_key.h"

#include <QQmlEngine>
#include <QQuickItem>

#include "ui/tile/glass_tile.h"

namespace glintboard {

namespace {

void followInside(QQuickItem& item) {
  if (auto* tile = qobject_cast<GlassTile*>(&item)) {
    tile->followPressing();
  }
  for (QQuickItem* child : item.childItems()) {
    followInside(*child);
  }
}

}  // namespace

TileIsPressedKey* TileIsPressedKey::qmlAttachedProperties(QObject* object) {
  auto* const key = new TileIsPressedKey(object);
  if (auto* item = qobject_cast<QQuickItem*>(object)) {
    // Once the engine knows that this is the item's own.
    QMetaObject::invokeMethod(key, [item] { followInside(*item); }, Qt::QueuedConnection);
  }
  return key;
}

TileIsPressedKey* TileIsPressedKey::of(QQuickItem* item) {
  for (; item != nullptr; item = item->parentItem()) {
    auto* key = qmlAttachedPropertiesObject<TileIsPressedKey>(item, false);
    if (key != nullptr) {
      return static_cast<TileIsPressedKey*>(key);
    }
  }
  return nullptr;
}

}  // namespace glintboard
