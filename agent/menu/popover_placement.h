// SPDX-License-Identifier: MIT
// The position of a popover.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

namespace glintboard {

// The top left corner of a popover of `size`. `available` is the area of the screen without its
// panels. The popover is beside the panel that contains `anchor`, centred on the anchor; without an
// anchor it is in the corner where the panel shows its tray. If it does not fit into `available`,
// its top and left edges do.
QPoint popoverPosition(std::optional<QPoint> anchor, QSize size, QRect screen, QRect available);

// Converts a point from the window system's pixels to Qt's coordinates. `screen` is a screen's
// geometry in Qt's coordinates. None when the point is on another screen.
std::optional<QPoint> pointOnScreen(QPoint pixels, QRect screen, qreal devicePixelRatio);

}  // namespace glintboard
