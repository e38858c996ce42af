// SPDX-License-Identifier: MIT
// What a desktop with a display offers a program beyond windows.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/desktop_appearance.h"
#include "platform/tray.h"

namespace glintboard {

// Talks to the session bus on a thread of its own: a bus that is absent, hangs, dies or comes back
// holds up nobody. Its operations never wait. For the thread of the application object.
class DesktopSession {
 public:
  // `appearanceChanged` is called on the session's thread, never before this is made. Reads a few
  // files.
  explicit DesktopSession(std::function<void(DesktopAppearance)> appearanceChanged);
  // No handler is called afterwards.
  ~DesktopSession();

  // The latest known appearance.
  DesktopAppearance appearance() const;

  // Shows the item in the desktop's tray, now and whenever one comes. Call it once, and before
  // the others.
  void showTrayItem(TrayLook look, TrayActivated activated);
  void setTrayToolTip(std::string text);
  // Tells on the session's thread whether a tray shows the item now.
  void askForTray(std::function<void(bool shown)> answer);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace glintboard
