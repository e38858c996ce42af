// SPDX-License-Identifier: MIT
// The window that the menu opens in.
#pragma once

#include <QPoint>
#include <optional>

namespace glintboard {

// Shows the menu of an agent with a display. Main thread.
class MenuPresenter {
 public:
  virtual ~MenuPresenter() = default;
  // Opens the menu beside `anchor`, a point of the tray's item on the screen in the window system's
  // own pixels if the desktop gives one, or closes an open one.
  virtual void toggle(std::optional<QPoint> anchor) = 0;
  // Opens the menu as an ordinary window, for a desktop without a tray; brings an open one to the
  // front.
  virtual void show() = 0;
};

}  // namespace glintboard
