// SPDX-License-Identifier: MIT
#include "ui/design/symbol.h"

#include <QPainter>

#include "ui/design/symbols.h"

namespace glintboard {

namespace {

constexpr qreal usualSize = 16;

}  // namespace

Symbol::Symbol(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setImplicitSize(usualSize, usualSize);
}

void Symbol::setName(const QString& name) {
  if (name == name_) {
    return;
  }
  name_ = name;
  update();
  Q_EMIT nameChanged();
}

void Symbol::setColor(const QColor& color) {
  if (color == color_) {
    return;
  }
  color_ = color;
  update();
  Q_EMIT colorChanged();
}

void Symbol::setSize(qreal size) {
  if (size == implicitWidth()) {
    return;
  }
  setImplicitSize(size, size);
  Q_EMIT sizeChanged();
}

void Symbol::paint(QPainter* painter) {
  if (!name_.isEmpty()) {
    Symbols::draw(*painter, name_, QRectF(0, 0, width(), height()), color_);
  }
}

}  // namespace glintboard
