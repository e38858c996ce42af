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
  // The same icon for the others: squares of several sizes.
  std::vector<QImage> pixmaps;
};

// Whether the desktop has a tray of the StatusNotifier kind.
enum class TrayPresence {
  unknown,  // not found out yet, or the session bus does not answer
  absent,   // there is none now; one may come
  shown,    // the item is in it
};

struct TrayHandlers {
  // The user activated the item. `x` and `y` are where, on the screen; both 0 where the desktop
  // does not tell. On any thread.
  std::function<void(int x, int y)> activated;
  // On any thread.
  std::function<void(TrayPresence)> presenceChanged;
};

}  // namespace glintboard
