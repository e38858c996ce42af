// SPDX-License-Identifier: MIT
// The picture of a Shortcut that names no icon.
#pragma once

#include <QImage>
#include <string>

namespace glintboard {

// A square of `side` pixels: a rounded tile in a colour that depends on `seed`, with an arrow that
// turns in a diamond. Any thread; needs no QGuiApplication.
QImage drawShortcutTile(const std::string& seed, int side);

}  // namespace glintboard
