// SPDX-License-Identifier: MIT
// The base of the items that this program paints itself.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickPaintedItem>

namespace glintboard {

// Paints itself again when one of its properties changes: `changed` is the notification of them
// all. Derived classes name this one with its namespace, since qmltyperegistrar finds it by the
// qualified name only. Main thread.
class PaintedItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit PaintedItem(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {
    connect(this, &PaintedItem::changed, this, [this] { update(); });
  }

 Q_SIGNALS:
  void changed();
};

}  // namespace glintboard
