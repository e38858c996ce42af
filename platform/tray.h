// SPDX-License-Identifier: MIT
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

// How the user activated the item.
struct TrayActivation {
  // Where, on the screen; both 0 where the desktop does not tell.
  int x = 0;
  int y = 0;
  // With it a Wayland compositor gives a window the focus; empty where there is none.
  std::string token;
};

// Called on any thread.
using TrayActivated = std::function<void(const TrayActivation&)>;

}  // namespace glintboard
