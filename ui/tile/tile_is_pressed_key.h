// SPDX-License-Identifier: MIT
// How a button presses the tiles inside it.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

class QQuickItem;

namespace glintboard {

// Attached to an item, its `tileIsPressed` holds for every tile inside that item and for the item
// itself, up to the next item with a value of its own. Main thread only.
class TileIsPressedKey : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("it is attached to an item")
  QML_ATTACHED(glintboard::TileIsPressedKey)
  Q_PROPERTY(bool tileIsPressed MEMBER tileIsPressed_ NOTIFY tileIsPressedChanged)

 public:
  static constexpr bool defaultValue = false;

  static TileIsPressedKey* qmlAttachedProperties(QObject* object);
  // The one that holds for `item`, or null.
  static TileIsPressedKey* of(QQuickItem* item);

  bool tileIsPressed() const { return tileIsPressed_; }

 Q_SIGNALS:
  void tileIsPressedChanged();

 private:
  using QObject::QObject;

  bool tileIsPressed_ = defaultValue;
};

}  // namespace glintboard
