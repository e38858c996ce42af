// SPDX-License-Identifier: MIT
// The appearance settings and the tray of a desktop session.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/desktop_appearance.h"
#include "platform/tray.h"

namespace glintboard {

// Uses the session bus on a thread of its own and reconnects when the bus ends and starts again. No
// operation blocks, whatever the bus does. Main thread.
class DesktopSession {
 public:
  // Reads the settings files. `appearanceChanged` is called on the session's thread at every
  // change, possibly before the constructor returns.
  explicit DesktopSession(std::function<void(DesktopAppearance)> appearanceChanged);
  // No callback runs afterwards.
  ~DesktopSession();

  // The latest known appearance.
  DesktopAppearance appearance() const;

  // Shows the item in the desktop's tray, also in one that starts later. Call it once, before the
  // other tray operations. `activated` is called on the session's thread.
  void showTrayItem(TrayLook look, TrayActivated activated);
  void setTrayToolTip(std::string text);
  // Calls `answer` on the session's thread with whether a tray shows the item now.
  void askForTray(std::function<void(bool shown)> answer);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace glintboard
