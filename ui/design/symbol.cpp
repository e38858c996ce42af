// SPDX-License-Identifier: MIT
#include "ui/design/symbol.h"

#include "ui/design/symbols.h"

namespace glintboard {

namespace {

constexpr qreal usualSide = 16;

}  // namespace

Symbol::Symbol(QQuickItem* parent) : PaintedItem(parent) {
  setSide(usualSide);
}

void Symbol::paint(QPainter* painter) {
  if (!name_.isEmpty()) {
    Symbols::draw(*painter, name_, boundingRect(), color_);
  }
}

}  // namespace glintboard
