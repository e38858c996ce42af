// SPDX-License-Identifier: MIT
// The icons of the user's Shortcuts.
#pragma once

#include <QImage>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace glintboard {

// Both operations and the drawing of an icon read files: call them on a worker. Safe on any
// thread; none throws.
struct ShortcutIconClient {
  struct Icon {
    std::string identifier;
    // Icons with equal stamps look the same; one that may look different now has another stamp.
    std::string stamp;
    // Draws it into a square of `side` pixels; a null image when it cannot be drawn.
    std::function<QImage(int side)> draw;
  };

  // The icon of the Shortcut of that identifier, in any letter case; none when there is none.
  std::function<std::optional<Icon>(const std::string& identifier)> icon;
  // The icons of all Shortcuts that have one.
  std::function<std::vector<Icon>()> icons;
};

}  // namespace glintboard
