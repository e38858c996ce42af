// The open ring of a progress spinner.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace glintboard {

// Fades out along its length. Whoever shows it turns it.
class SpinnerArc : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

 public:
  explicit SpinnerArc(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

  QColor color() const { return color_; }
  void setColor(const QColor& color);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void colorChanged();

 private:
  QColor color_ = Qt::black;
};

}  // namespace glintboard
