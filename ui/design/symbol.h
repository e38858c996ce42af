// SPDX-License-Identifier: MIT
// A symbol in a view, sharp at every scale factor.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QQuickPaintedItem>

namespace glintboard {

// In QML: `Symbol { name: "lock.fill"; color: Theme.text; size: 16 }`.
class Symbol : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
  // The side of its square, in device-independent pixels.
  Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)

 public:
  explicit Symbol(QQuickItem* parent = nullptr);

  QString name() const { return name_; }
  void setName(const QString& name);
  QColor color() const { return color_; }
  void setColor(const QColor& color);
  qreal size() const { return implicitWidth(); }
  void setSize(qreal size);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void nameChanged();
  void colorChanged();
  void sizeChanged();

 private:
  QString name_;
  QColor color_ = Qt::black;
};

}  // namespace glintboard
