// SPDX-License-Identifier: MIT
// The picture of a Shortcut without an icon.
#pragma once

#include <QImage>
#include <string>

namespace glintboard {

// A square of `side` pixels with a rounded tile, whose colour depends on `seed`, and an arrow in a
// diamond. Any thread; needs no QGuiApplication.
QImage drawShortcutTile(const std::string& seed, int side);

}  // namespace glintboard
