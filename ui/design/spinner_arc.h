// SPDX-License-Identifier: MIT
// The open ring of a progress spinner.
#pragma once

#include <QColor>

#include "ui/design/painted_item.h"

namespace glintboard {

// Fades out along its length. Its owner animates it, by the item's rotation or by `turn`.
class SpinnerArc : public glintboard::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  // Degrees, clockwise.
  Q_PROPERTY(qreal turn MEMBER turn_ NOTIFY changed)

 public:
  using PaintedItem::PaintedItem;

  void paint(QPainter* painter) override;

 private:
  QColor color_ = Qt::black;
  qreal turn_ = 0;
};

}  // namespace glintboard
