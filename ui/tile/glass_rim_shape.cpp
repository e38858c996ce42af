// SPDX-License-Identifier: MIT
#include "ui/tile/glass_rim_shape.h"

#include <algorithm>

namespace glintboard {

namespace {

constexpr double leastRadius = 4;

QRectF inset(const QRectF& rect, double by) {
  return rect.adjusted(by, by, -by, -by);
}

}  // namespace

QPainterPath GlassRimShape::path(const QRectF& rect) const {
  const QRectF outer = inset(rect, edgeInset);
  const double outerRadius = std::max(leastRadius, cornerRadius - edgeInset);
  const double innerRadius = std::max(leastRadius, outerRadius - bandWidth);
  QPainterPath band;
  band.setFillRule(Qt::OddEvenFill);
  band.addRoundedRect(outer, outerRadius, outerRadius);
  band.addRoundedRect(inset(outer, bandWidth), innerRadius, innerRadius);
  return band;
}

}  // namespace glintboard
