// SPDX-License-Identifier: MIT
// The grid of keys that stands for the agent: in the tray, where the desktop has no picture of it
// installed, and in its own windows.
#pragma once

#include <QImage>
#include <vector>

namespace glintboard {

// The grid of keys as a square of `size` pixels (16 or more), readable on light and dark panels.
QImage trayImage(int size);
// The same without borders, in the colours of a window.
QImage markImage(int size, const QColor& key, const QColor& lit);
// The sizes that trays show, smallest first.
std::vector<QImage> trayImages();

}  // namespace glintboard
