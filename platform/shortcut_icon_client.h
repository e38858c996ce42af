// SPDX-License-Identifier: MIT
// The icons of the user's Shortcuts.
#pragma once

#include <QImage>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace glintboard {

// Both operations, and drawing an icon, read files: call them on a worker. Thread-safe; none
// throws.
struct ShortcutIconClient {
  struct Icon {
    std::string identifier;
    // Equal stamps mean equal images. The stamp changes when the image may have changed.
    std::string stamp;
    // Draws the icon into a square of `side` pixels; a null image on failure.
    std::function<QImage(int side)> draw;
  };

  // The icon of the Shortcut with that identifier, regardless of letter case, or none.
  std::function<std::optional<Icon>(const std::string& identifier)> icon;
  // The icons of all Shortcuts that have one.
  std::function<std::vector<Icon>()> icons;
};

}  // namespace glintboard
