// SPDX-License-Identifier: MIT
// The agent's item in whatever tray the desktop has.
#pragma once

#include <memory>

#include "platform/linux/base/desktop_bus.h"
#include "platform/linux/desktop/status_notifier_item.h"
#include "platform/linux/desktop/x11_tray_item.h"

namespace glintboard {

// Prefers the StatusNotifier tray to that of the X display. All on the bus's thread.
class TrayItem {
 public:
  // `onX11` tells whether the agent's windows are on the X display that the environment names.
  TrayItem(const TrayLook& look, TrayActivated activated, bool onX11);

  // What the bus is to know of it.
  std::shared_ptr<DesktopBus::Client> client() { return notifier_; }
  void setToolTip(std::string text) { notifier_->setToolTip(std::move(text)); }
  // Whether a tray shows the item now.
  bool isShown() const;
  // Ends everything but the client.
  void end();

 private:
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
