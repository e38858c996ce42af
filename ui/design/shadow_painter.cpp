// SPDX-License-Identifier: MIT
#include "ui/design/shadow_painter.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace glintboard {

namespace {

// One pass of a running mean over the rows of a square of `side` values, into its transpose.
void averageRows(const std::vector<float>& from, std::vector<float>& to, int side, int reach) {
  const auto width = static_cast<float>(2 * reach + 1);
  for (int row = 0; row < side; ++row) {
    const auto at = [&](int column) {
      return column < 0 || column >= side ? 0.0F : from[row * side + column];
    };
    float sum = 0;
    for (int column = -reach; column < reach; ++column) {
      sum += at(column);
    }
    for (int column = 0; column < side; ++column) {
      sum += at(column + reach);
      to[column * side + row] = sum / width;
      sum -= at(column - reach);
    }
  }
}

// A blurred rounded square in `color`, as small as can be: `edge` pixels of corner on each side of
// one pixel that may be stretched.
QImage blurredSquare(int edge, qreal radius, qreal blur, const QColor& color) {
  const int side = 2 * edge + 1;
  QImage mask(side, side, QImage::Format_Alpha8);
  mask.fill(0);
  {
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRectF(blur, blur, side - 2 * blur, side - 2 * blur), radius, radius);
  }
  std::vector<float> values(static_cast<std::size_t>(side) * side);
  for (int y = 0; y < side; ++y) {
    std::copy_n(mask.constScanLine(y), side,
                values.begin() + static_cast<std::ptrdiff_t>(y) * side);
  }
  // Three running means both ways are near enough to a Gaussian.
  std::vector<float> other(values.size());
  const int reach = static_cast<int>(blur / 3);
  for (int pass = 0; pass < 3; ++pass) {
    averageRows(values, other, side, reach);
    averageRows(other, values, side, reach);
  }
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < side; ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < side; ++x) {
      const float alpha = values[static_cast<std::size_t>(y) * side + x] * color.alphaF();
      line[x] = qPremultiply(
          qRgba(color.red(), color.green(), color.blue(), static_cast<int>(std::lround(alpha))));
    }
  }
  return image;
}

}  // namespace

void paintShadow(QPainter& painter, const QRectF& shape, qreal radius, qreal blur,
                 const QColor& color) {
  if (shape.isEmpty() || color.alpha() == 0) {
    return;
  }
  // Drawn at one pixel a unit: a shadow has no detail that more would show.
  const auto shortest = std::min(shape.width(), shape.height()) / 2 + blur;
  const int edge = static_cast<int>(std::min(std::ceil(radius + 2 * blur), std::floor(shortest)));
  const QImage image = blurredSquare(edge, radius, blur, color);
  const QRectF outer = shape.adjusted(-blur, -blur, blur, blur);
  const std::array<qreal, 4> xs{outer.left(), outer.left() + edge, outer.right() - edge,
                                outer.right()};
  const std::array<qreal, 4> ys{outer.top(), outer.top() + edge, outer.bottom() - edge,
                                outer.bottom()};
  const std::array<qreal, 4> from{0, static_cast<qreal>(edge), edge + 1.0, 2.0 * edge + 1};
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      painter.drawImage(
          QRectF(QPointF(xs[column], ys[row]), QPointF(xs[column + 1], ys[row + 1])), image,
          QRectF(QPointF(from[column], from[row]), QPointF(from[column + 1], from[row + 1])));
    }
  }
  painter.restore();
}

}  // namespace glintboard
