// SPDX-License-Identifier: MIT
// The agent's item in trays that speak the StatusNotifier protocol.
#pragma once

#include <optional>

#include "platform/linux/base/desktop_bus.h"
#include "platform/tray.h"

namespace glintboard {

// Offers the item on the bus and registers it with the desktop's watcher, whenever one comes. All
// on the bus's thread.
class StatusNotifierItem : public DesktopBus::Client {
 public:
  // `shownChanged` is told whether such a tray shows the item, first when that is known.
  StatusNotifierItem(TrayLook look, TrayActivated activated,
                     std::function<void(bool shown)> shownChanged);
  ~StatusNotifierItem() override;
  StatusNotifierItem(const StatusNotifierItem&) = delete;
  StatusNotifierItem& operator=(const StatusNotifierItem&) = delete;

  void setToolTip(std::string text);

  void connected(GDBusConnection* bus) override;
  void disconnected() override;

 private:
  struct OnBus;  // what GIO calls

  void registerWith(const char* watcher);
  void registered(bool accepted);
  void askForHost();
  void notShownYet();
  void setShown(bool shown);
  void emit(const char* signal) const;
  GVariant* property(std::string_view name) const;

  const TrayLook look_;
  const TrayActivated activated_;
  const std::function<void(bool shown)> shownChanged_;
  const GLibPointer<GDBusNodeInfo> description_;
  const std::string name_;

  std::string toolTip_;
  std::optional<bool> shown_;
  std::string token_;  // for the next activation

  // While connected.
  GDBusConnection* bus_ = nullptr;
  GObjectPointer<GCancellable> cancellable_;
  GLibPointer<GSource> timeout_;
  unsigned object_ = 0;
  unsigned ownedName_ = 0;
  unsigned watcher_ = 0;
  unsigned hostSignal_ = 0;
};

}  // namespace glintboard
