// SPDX-License-Identifier: MIT
// An item in the desktop's tray.
#pragma once

#include <QImage>
#include <functional>
#include <string>
#include <vector>

namespace glintboard {

// The appearance of the item.
struct TrayLook {
  std::string title;
  // The name of a symbolic icon, for trays that look it up in the icon theme.
  std::string iconName;
  // The same icon for other trays: square images, the smallest first.
  std::vector<QImage> pixmaps;
};

// How the user activated the item.
struct TrayActivation {
  // The position on the screen in pixels; both 0 if unknown.
  int x = 0;
  int y = 0;
  // The Wayland activation token that lets a window take the focus; may be empty.
  std::string token;
};

// Called on any thread.
using TrayActivated = std::function<void(const TrayActivation&)>;

}  // namespace glintboard
