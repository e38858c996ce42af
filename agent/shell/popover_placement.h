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

}  // namespace glintboard
