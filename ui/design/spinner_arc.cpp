// SPDX-License-Identifier: MIT
#include "ui/design/spinner_arc.h"

#include <QConicalGradient>
#include <QPainter>
#include <algorithm>

namespace glintboard {

void SpinnerArc::paint(QPainter* painter) {
  const qreal side = std::min(width(), height());
  const qreal stroke = std::max(1.5, side / 9);
  const QRectF ring = QRectF((width() - side) / 2, (height() - side) / 2, side, side)
                          .adjusted(stroke, stroke, -stroke, -stroke);
  QColor end = color_;
  end.setAlpha(0);
  QConicalGradient fade(ring.center(), 90 - turn_);
  fade.setColorAt(0, color_);
  fade.setColorAt(0.8, end);
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(fade, stroke, Qt::SolidLine, Qt::RoundCap));
  painter->drawArc(ring, static_cast<int>((90 - turn_) * 16), 270 * 16);
}

}  // namespace glintboard
