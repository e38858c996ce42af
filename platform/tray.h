// An item in the desktop's tray.
#pragma once

#include <QImage>
#include <functional>
#include <string>
#include <vector>

namespace glintboard {

// What the item looks like.
struct TrayLook {
  std::string title;
  // The name of a symbolic icon, for desktops on which it is installed.
  std::string iconName;
  // The same icon for the others: squares, smallest first.
  std::vector<QImage> pixmaps;
};

// The user activated the item. `x` and `y` are where, on the screen; both 0 where the desktop does
// not tell. Called on any thread.
using TrayActivated = std::function<void(int x, int y)>;

}  // namespace glintboard
