// SPDX-License-Identifier: MIT
#include "ui/design/soft_shadow.h"

#include <QPainter>

#include "ui/design/shadow_painter.h"

namespace glintboard {

void SoftShadow::paint(QPainter* painter) {
  const QRectF shape = QRectF(0, 0, width(), height()).adjusted(blur_, blur_, -blur_, -blur_);
  paintShadow(*painter, shape, radius_, blur_, color_);
  painter->setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(Qt::black);
  painter->drawRoundedRect(shape.translated(0, -fall_), radius_, radius_);
}

}  // namespace glintboard
