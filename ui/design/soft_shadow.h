// SPDX-License-Identifier: MIT
// The shadow of a rounded rectangle.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace glintboard {

// Nothing is drawn below the shape, so that a translucent one stays clear. The item reaches `blur`
// beyond the shape on every side, since an item paints only inside itself: `SoftShadow {
// anchors.fill: card; anchors.margins: -blur; radius: card.radius }`.
class SoftShadow : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY shadowChanged)
  Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY shadowChanged)
  // How far the shadow falls below the shape; the item must be moved down by it.
  Q_PROPERTY(qreal fall READ fall WRITE setFall NOTIFY shadowChanged)
  Q_PROPERTY(qreal blur READ blur WRITE setBlur NOTIFY shadowChanged)

 public:
  explicit SoftShadow(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

  QColor color() const { return color_; }
  void setColor(const QColor& color) { change(color_, color); }
  qreal radius() const { return radius_; }
  void setRadius(qreal radius) { change(radius_, radius); }
  qreal blur() const { return blur_; }
  void setBlur(qreal blur) { change(blur_, blur); }
  qreal fall() const { return fall_; }
  void setFall(qreal fall) { change(fall_, fall); }

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void shadowChanged();

 private:
  template <class Value>
  void change(Value& field, const Value& value) {
    if (field != value) {
      field = value;
      update();
      Q_EMIT shadowChanged();
    }
  }

  QColor color_ = Qt::black;
  qreal radius_ = 0;
  qreal blur_ = 0;
  qreal fall_ = 0;
};

}  // namespace glintboard
