// The icons of the user's Shortcuts.
#pragma once

#include <QImage>
#include <functional>
#include <string>
#include <vector>

namespace glintboard {

// Both operations read files: call them on a worker. Safe on any thread; neither throws.
struct ShortcutIconClient {
  struct Icon {
    std::string identifier;
    QImage image;
  };

  // The icon of the Shortcut of that identifier, in any letter case; a null image when there is
  // none.
  std::function<QImage(const std::string& identifier, int side)> icon;
  // The icons of all Shortcuts that have one.
  std::function<std::vector<Icon>(int side)> icons;
};

}  // namespace glintboard
