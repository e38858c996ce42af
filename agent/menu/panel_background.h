// SPDX-License-Identifier: MIT
// The background of a popover.
#pragma once

#include <QColor>

#include "ui/design/painted_item.h"

namespace glintboard {

// A rounded gradient with a hairline around it. Qt's own rectangle has jagged corners when a
// gradient is drawn in software. Main thread.
class PanelBackground : public glintboard::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor topColor MEMBER top_ NOTIFY changed)
  Q_PROPERTY(QColor bottomColor MEMBER bottom_ NOTIFY changed)
  Q_PROPERTY(QColor strokeColor MEMBER stroke_ NOTIFY changed)
  Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY changed)

 public:
  using PaintedItem::PaintedItem;

  void paint(QPainter* painter) override;

 private:
  QColor top_ = Qt::white;
  QColor bottom_ = Qt::white;
  QColor stroke_ = Qt::transparent;
  qreal radius_ = 0;
};

}  // namespace glintboard
