// SPDX-License-Identifier: MIT
// The band of glass along the edge of a tile.
#pragma once

#include <QPainterPath>

namespace glintboard {

// In points.
struct GlassRimShape {
  double cornerRadius = 0;
  double bandWidth = 0;
  double edgeInset = 0;

  // The band between two rounded rectangles, to be filled by the even-odd rule.
  QPainterPath path(const QRectF& rect) const;
};

}  // namespace glintboard
