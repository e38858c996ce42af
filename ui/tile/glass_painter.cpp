// SPDX-License-Identifier: MIT
#include "ui/tile/glass_painter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace glintboard {

namespace {

QColor white(double alpha) {
  return QColor::fromRgbF(1, 1, 1, static_cast<float>(alpha));
}

QColor black(double alpha) {
  return QColor::fromRgbF(0, 0, 0, static_cast<float>(alpha));
}

QColor mixed(const QColor& a, const QColor& b, float part) {
  const auto mix = [part](float one, float other) { return one + (other - one) * part; };
  return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                          mix(a.blueF(), b.blueF()));
}

QPainterPath roundedSquare(const QRectF& face, qreal radius) {
  QPainterPath path;
  path.addRoundedRect(face, radius, radius);
  return path;
}

QColor tinted(const QColor& background, const QColor& accent) {
  return accent.isValid() ? mixed(background, accent, 0.18F) : background;
}

}  // namespace

void paintGlassFace(QPainter& painter, const QRectF& face, qreal radius, const QColor& top,
                    const QColor& bottom) {
  painter.setRenderHint(QPainter::Antialiasing);
  const QPainterPath shape = roundedSquare(face, radius);
  QLinearGradient color(face.topLeft(), face.bottomLeft());
  color.setColorAt(0, top);
  color.setColorAt(1, bottom);
  painter.fillPath(shape, color);
  QLinearGradient shade(face.topLeft(), face.bottomLeft());
  shade.setColorAt(0.45, black(0));
  shade.setColorAt(1, black(0.18));
  painter.fillPath(shape, shade);
}

void paintGlassHighlight(QPainter& painter, const QRectF& face, qreal radius) {
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath above(face.topLeft());
  above.lineTo(face.topRight());
  const qreal side = face.top() + 0.36 * face.height();
  above.lineTo(face.right(), side);
  above.quadTo(QPointF(face.center().x(), face.top() + 0.54 * face.height()),
               QPointF(face.left(), side));
  above.closeSubpath();
  QLinearGradient light(face.topLeft(), QPointF(face.left(), face.top() + 0.45 * face.height()));
  light.setColorAt(0, white(0.22));
  light.setColorAt(1, white(0));
  painter.fillPath(above.intersected(roundedSquare(face, radius)), light);
}

void paintGlassRim(QPainter& painter, const QRectF& face, const GlassRimShape& rim, bool dashed) {
  painter.setRenderHint(QPainter::Antialiasing);
  if (!dashed) {
    QLinearGradient light(face.topLeft(), face.bottomRight());
    light.setColorAt(0, white(0.55));
    light.setColorAt(0.5, white(0.16));
    light.setColorAt(1, white(0.08));
    painter.fillPath(rim.path(face), light);
    return;
  }
  // Inside the face, so that the face shows in the gaps.
  const qreal inset = rim.edgeInset + 2.5 * rim.bandWidth;
  QPen pen(white(0.75), rim.bandWidth);
  pen.setDashPattern({3, 2.5});
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(face.adjusted(inset, inset, -inset, -inset), rim.cornerRadius - inset,
                          rim.cornerRadius - inset);
}

QColor desaturated(const QColor& color) {
  const float grey = 0.299F * color.redF() + 0.587F * color.greenF() + 0.114F * color.blueF();
  return mixed(color, QColor::fromRgbF(grey, grey, grey), 0.85F);
}

QColor iconFaceTop(const QColor& accent) {
  return tinted(QColor(0x3B3541), accent);
}

QColor iconFaceBottom(const QColor& accent) {
  return tinted(QColor(0x1F1A24), accent);
}

}  // namespace glintboard
