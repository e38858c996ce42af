// SPDX-License-Identifier: MIT
// The position of a new window.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <vector>

namespace glintboard {

// A screen in desktop coordinates. `available` excludes panels and docks.
struct ScreenArea {
  QRect whole;
  QRect available;
};

// The geometry of a window of that size in the middle of the screen under the pointer, else of the
// window's own screen, else of the first. The size is limited to the screen's. `screens` must not
// be empty and starts with the main one; `own` is the index of the window's screen in it, or -1.
QRect centredWindow(QSize size, QPoint pointer, const std::vector<ScreenArea>& screens,
                    int own = -1);

}  // namespace glintboard
