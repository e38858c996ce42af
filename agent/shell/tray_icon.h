// The picture of the tray's item, where the desktop has none of its own installed.
#pragma once

#include <QImage>
#include <vector>

namespace glintboard {

// The grid of keys as a square of `size` pixels (16 or more), readable on light and dark panels.
QImage trayImage(int size);
// The sizes that trays show, smallest first.
std::vector<QImage> trayImages();

}  // namespace glintboard
