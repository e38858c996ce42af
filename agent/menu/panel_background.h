// SPDX-License-Identifier: MIT
// The ground of a popover.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace glintboard {

// A rounded gradient with a hairline around it. Qt's own rectangle has jagged corners when a
// gradient is drawn in software. Main thread.
class PanelBackground : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor topColor MEMBER top_ NOTIFY changed)
  Q_PROPERTY(QColor bottomColor MEMBER bottom_ NOTIFY changed)
  Q_PROPERTY(QColor strokeColor MEMBER stroke_ NOTIFY changed)
  Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY changed)

 public:
  explicit PanelBackground(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void changed();

 private:
  QColor top_ = Qt::white;
  QColor bottom_ = Qt::white;
  QColor stroke_ = Qt::transparent;
  qreal radius_ = 0;
};

}  // namespace glintboard
