// SPDX-License-Identifier: MIT
// The agent's icon, a grid of keys: for the tray where the desktop has no installed icon of the
// agent, and for its own windows.
#pragma once

#include <QImage>
#include <vector>

namespace glintboard {

// The grid of keys as a square of `size` pixels (16 or more), readable on light and dark panels.
QImage trayImage(int size);
// The same without borders, in the given colours.
QImage markImage(int size, const QColor& key, const QColor& lit);
// The icon in the sizes that trays show, smallest first.
std::vector<QImage> trayImages();

}  // namespace glintboard
