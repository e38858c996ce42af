// SPDX-License-Identifier: MIT
#include "agent/menu/popover_placement.h"

#include <algorithm>
#include <array>

namespace glintboard {
namespace {

constexpr int gap = 8;  // to the panel and to the edges

enum class Edge { top, bottom, left, right };

// The edge of the anchor's panel; the nearest edge when no panel reserves space.
Edge edgeOf(QPoint anchor, const QRect& available) {
  const std::array distances{
      std::pair(anchor.y() - available.top(), Edge::top),
      std::pair(available.bottom() - anchor.y(), Edge::bottom),
      std::pair(anchor.x() - available.left(), Edge::left),
      std::pair(available.right() - anchor.x(), Edge::right),
  };
  return std::ranges::min_element(distances)->second;
}

// Trays are at the far end of a panel.
QPoint usualAnchor(const QRect& screen, const QRect& available) {
  if (available.left() > screen.left()) {
    return {screen.left(), screen.bottom()};
  }
  const bool panelBelow = available.bottom() < screen.bottom() && available.top() == screen.top();
  return panelBelow || available.right() < screen.right() ? screen.bottomRight()
                                                          : screen.topRight();
}

int clamped(int wanted, int low, int high) {
  return std::max(low, std::min(wanted, high));
}

}  // namespace

QPoint popoverPosition(std::optional<QPoint> anchor, QSize size, QRect screen, QRect available) {
  const QPoint point = anchor.value_or(usualAnchor(screen, available));
  QPoint position(point.x() - size.width() / 2, point.y() - size.height() / 2);
  switch (edgeOf(point, available)) {
    case Edge::top:
      position.setY(point.y() + gap);
      break;
    case Edge::bottom:
      position.setY(point.y() - gap - size.height());
      break;
    case Edge::left:
      position.setX(point.x() + gap);
      break;
    case Edge::right:
      position.setX(point.x() - gap - size.width());
      break;
  }
  const QRect inside = available.adjusted(gap, gap, -gap, -gap);
  return {clamped(position.x(), inside.left(), inside.right() + 1 - size.width()),
          clamped(position.y(), inside.top(), inside.bottom() + 1 - size.height())};
}

// Qt scales a screen's size, but not its position.
std::optional<QPoint> pointOnScreen(QPoint pixels, QRect screen, qreal devicePixelRatio) {
  const QPoint position = pixels - screen.topLeft();
  if (!QRect(QPoint(), (QSizeF(screen.size()) * devicePixelRatio).toSize()).contains(position)) {
    return std::nullopt;
  }
  return screen.topLeft() + (QPointF(position) / devicePixelRatio).toPoint();
}

}  // namespace glintboard
