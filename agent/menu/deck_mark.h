// SPDX-License-Identifier: MIT
// The agent's mark in its windows.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace glintboard {

// A deck of four keys, one of them lit; sharp at every scale factor. Main thread.
class DeckMark : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor keyColor MEMBER key_ NOTIFY changed)
  Q_PROPERTY(QColor litColor MEMBER lit_ NOTIFY changed)

 public:
  explicit DeckMark(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  QColor key_ = Qt::gray;
  QColor lit_ = Qt::black;
};

}  // namespace glintboard
