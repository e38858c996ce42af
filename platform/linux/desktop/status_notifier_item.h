// SPDX-License-Identifier: MIT
// The agent's item in trays with the StatusNotifier protocol.
#pragma once

#include <optional>

#include "platform/linux/base/desktop_bus.h"
#include "platform/tray.h"

namespace glintboard {

// Exports the item on the bus and registers it with each StatusNotifierWatcher that starts. Bus's
// thread only.
class StatusNotifierItem : public DesktopBus::Client {
 public:
  // `shownChanged` is called when it becomes known, and when it changes, whether a tray shows the
  // item.
  StatusNotifierItem(TrayLook look, TrayActivated activated,
                     std::function<void(bool shown)> shownChanged);
  ~StatusNotifierItem() override;
  StatusNotifierItem(const StatusNotifierItem&) = delete;
  StatusNotifierItem& operator=(const StatusNotifierItem&) = delete;

  // Sets the plain text of the tool tip.
  void setToolTip(std::string text);

  void connected(GDBusConnection* bus) override;
  void disconnected() override;

 private:
  struct OnBus;  // GIO's callbacks

  // Registers the item with the watcher of that bus name. Without an answer in time, the item
  // counts as not shown until the watcher answers.
  void registerWith(const char* watcher);
  void registered(bool accepted);
  // Asks the watcher whether a host shows the items.
  void askForHost();
  void notShownYet();
  // Calls `shownChanged_` if the value has changed.
  void setShown(bool shown);
  // Emits a signal without arguments, if connected.
  void emit(const char* signal) const;
  // The value of a property of the item, as a floating reference.
  GVariant* property(std::string_view name) const;

  const TrayLook look_;
  const TrayActivated activated_;
  const std::function<void(bool shown)> shownChanged_;
  const GLibPointer<GDBusNodeInfo> description_;
  const std::string name_;

  std::string toolTip_;
  std::optional<bool> shown_;
  std::string token_;  // the activation token of the next activation

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
