// SPDX-License-Identifier: MIT
// The open ring of a progress spinner.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace glintboard {

// Fades out along its length. Whoever shows it turns it, as an item or by `turn`.
class SpinnerArc : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
  // Degrees, clockwise.
  Q_PROPERTY(qreal turn READ turn WRITE setTurn NOTIFY turnChanged)

 public:
  explicit SpinnerArc(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

  QColor color() const { return color_; }
  void setColor(const QColor& color);
  qreal turn() const { return turn_; }
  void setTurn(qreal turn);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void colorChanged();
  void turnChanged();

 private:
  QColor color_ = Qt::black;
  qreal turn_ = 0;
};

}  // namespace glintboard
