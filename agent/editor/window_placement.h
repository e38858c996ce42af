// SPDX-License-Identifier: MIT
// Where a window opens.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <vector>

namespace glintboard {

// A screen in the coordinates of the desktop; `available` is what panels and docks leave of it.
struct ScreenArea {
  QRect whole;
  QRect available;
};

// A window of that size in the middle of the screen under the pointer, else of the window's own
// screen, else of the first. Smaller than asked where the screen is. `screens` must not be empty,
// its first is the main one; `own` is the place of the window's screen among them, or -1.
QRect centredWindow(QSize size, QPoint pointer, const std::vector<ScreenArea>& screens,
                    int own = -1);

}  // namespace glintboard
