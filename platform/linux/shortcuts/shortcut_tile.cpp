// SPDX-License-Identifier: MIT
#include "platform/linux/shortcuts/shortcut_tile.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace glintboard {

namespace {

// The coordinates below are on a square of 128 units.
constexpr qreal units = 128;

// A hue for a seed, 0 to 359: its FNV-1a hash.
int hueOf(const std::string& seed) {
  std::uint32_t hash = 2166136261U;
  for (const char letter : seed) {
    hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
  }
  return static_cast<int>(hash % 360U);
}

void drawDiamond(QPainter& painter) {
  painter.save();
  painter.translate(units / 2, units / 2);
  painter.rotate(45);
  painter.drawRoundedRect(QRectF(-31, -31, 62, 62), 9, 9);
  painter.restore();
}

// An arrow that comes from below and turns to the right.
void drawArrow(QPainter& painter, const QColor& colour) {
  QPainterPath shaft(QPointF(52, 82));
  shaft.lineTo(52, 66);
  shaft.quadTo(52, 58, 60, 58);
  shaft.lineTo(72, 58);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(shaft);
  QPainterPath head(QPointF(71, 46));
  head.lineTo(83, 58);
  head.lineTo(71, 70);
  head.closeSubpath();
  painter.setBrush(colour);
  painter.setPen(QPen(colour, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(head);
}

}  // namespace

QImage drawShortcutTile(const std::string& seed, int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  const int hue = hueOf(seed);
  const QColor dark = QColor::fromHsl(hue, 150, 88);
  QLinearGradient tint(0, 0, 0, units);
  tint.setColorAt(0, QColor::fromHsl(hue, 165, 132));
  tint.setColorAt(1, dark);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / units, side / units);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tint);
  painter.drawRoundedRect(QRectF(4, 4, 120, 120), 28, 28);
  painter.setBrush(Qt::white);
  drawDiamond(painter);
  drawArrow(painter, dark);
  return image;
}

}  // namespace glintboard
