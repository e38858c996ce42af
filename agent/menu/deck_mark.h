// SPDX-License-Identifier: MIT
// The agent's mark in its windows.
#pragma once

#include <QColor>

#include "ui/design/painted_item.h"

namespace glintboard {

// Four keys, one of them lit; sharp at every scale factor. Main thread.
class DeckMark : public glintboard::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor keyColor MEMBER key_ NOTIFY changed)
  Q_PROPERTY(QColor litColor MEMBER lit_ NOTIFY changed)

 public:
  using PaintedItem::PaintedItem;

  void paint(QPainter* painter) override;

 private:
  QColor key_ = Qt::gray;
  QColor lit_ = Qt::black;
};

}  // namespace glintboard
