// SPDX-License-Identifier: MIT
// The agent's item in the desktop's tray.
#pragma once

#include <memory>

#include "platform/linux/base/desktop_bus.h"
#include "platform/linux/desktop/status_notifier_item.h"
#include "platform/linux/desktop/x11_tray_item.h"

namespace glintboard {

// Uses a StatusNotifier tray, else the tray of the X display. Bus's thread only.
class TrayItem {
 public:
  // `onX11`: whether the agent's windows are on the X display that the environment names.
  TrayItem(const TrayLook& look, TrayActivated activated, bool onX11);

  // The client to add to the bus.
  std::shared_ptr<DesktopBus::Client> client() { return notifier_; }
  // Sets the plain text of the tool tip.
  void setToolTip(std::string text) { notifier_->setToolTip(std::move(text)); }
  // Whether a tray shows the item now.
  bool isShown() const;
  // Removes the item from the X display. The client is removed by the bus.
  void end();

 private:
  // Adds or removes the item on the X display.
  void notifierChanged(bool shown);

  const TrayLook look_;
  const TrayActivated activated_;
  const bool onX11_;
  bool ended_ = false;
  bool notifierShown_ = false;
  std::shared_ptr<StatusNotifierItem> notifier_;
  std::unique_ptr<X11TrayItem> legacy_;
};

}  // namespace glintboard
