// SPDX-License-Identifier: MIT
// A symbol in a view, sharp at every scale factor.
#pragma once

#include <QColor>

#include "ui/design/painted_item.h"

namespace glintboard {

// In QML: `Symbol { name: "lock.fill"; color: Theme.text; size: 16 }`.
class Symbol : public glintboard::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  // A name of Symbols. An empty one draws nothing.
  Q_PROPERTY(QString name MEMBER name_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  // The side of its square, in device-independent pixels.
  Q_PROPERTY(qreal size READ implicitWidth WRITE setSide NOTIFY implicitWidthChanged)

 public:
  explicit Symbol(QQuickItem* parent = nullptr);

  void setSide(qreal side) { setImplicitSize(side, side); }

  void paint(QPainter* painter) override;

 private:
  QString name_;
  QColor color_ = Qt::black;
};

}  // namespace glintboard
