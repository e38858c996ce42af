// SPDX-License-Identifier: MIT
// Where a popover opens.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

namespace glintboard {

// The place of a popover of `size` on a screen whose panels leave `available` of it. It lies beside
// the panel that `anchor` is in, centred on it; without an anchor in the corner where the panel
// keeps its tray. Always inside `available` as far as it fits, with its top in any case.
QPoint popoverPosition(std::optional<QPoint> anchor, QSize size, QRect screen, QRect available);

// A point in the window system's pixels as a point of Qt's, on a screen whose geometry Qt tells as
// `screen`; nothing when it lies on another.
std::optional<QPoint> pointOnScreen(QPoint pixels, QRect screen, qreal devicePixelRatio);

}  // namespace glintboard
