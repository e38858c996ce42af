// SPDX-License-Identifier: MIT
#include "agent/menu/panel_background.h"

#include <QPainter>

namespace glintboard {

void PanelBackground::paint(QPainter* painter) {
  const qreal hairline = 1 / painter->device()->devicePixelRatio();
  QLinearGradient gradient(0, 0, 0, height());
  gradient.setColorAt(0, top_);
  gradient.setColorAt(1, bottom_);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(Qt::NoPen);
  painter->setBrush(gradient);
  painter->drawRoundedRect(boundingRect(), radius_, radius_);
  const qreal half = hairline / 2;
  painter->setPen(QPen(stroke_, hairline));
  painter->setBrush(Qt::NoBrush);
  painter->drawRoundedRect(boundingRect().adjusted(half, half, -half, -half), radius_ - half,
                           radius_ - half);
}

}  // namespace glintboard
