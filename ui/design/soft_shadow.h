// SPDX-License-Identifier: MIT
// The shadow of a rounded rectangle.
#pragma once

#include <QColor>

#include "ui/design/painted_item.h"

namespace glintboard {

// The area below the shape stays empty, so that a translucent shape stays clear. The item extends
// `blur` beyond the shape on every side, since an item paints only inside itself: `SoftShadow {
// anchors.fill: card; anchors.margins: -blur; radius: card.radius }`.
class SoftShadow : public glintboard::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY changed)
  // The distance of the shadow below the shape. The item must be moved down by it.
  Q_PROPERTY(qreal fall MEMBER fall_ NOTIFY changed)
  Q_PROPERTY(qreal blur MEMBER blur_ NOTIFY changed)

 public:
  using PaintedItem::PaintedItem;

  void paint(QPainter* painter) override;

 private:
  QColor color_ = Qt::black;
  qreal radius_ = 0;
  qreal blur_ = 0;
  qreal fall_ = 0;
};

}  // namespace glintboard
