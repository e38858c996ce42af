// SPDX-License-Identifier: MIT
// Follows the desktop's appearance settings.
#pragma once

#include <functional>
#include <mutex>

#include "platform/linux/base/desktop_bus.h"
#include "platform/linux/desktop/appearance_settings.h"

namespace glintboard {

// Reads the settings files once and follows the desktop portal, whose settings have precedence.
class DesktopAppearanceMonitor : public DesktopBus::Client {
 public:
  // Reads the files. `changed` is called on the bus's thread at every change.
  DesktopAppearanceMonitor(const XdgFolders& folders,
                           std::function<void(DesktopAppearance)> changed);
  ~DesktopAppearanceMonitor() override;
  DesktopAppearanceMonitor(const DesktopAppearanceMonitor&) = delete;
  DesktopAppearanceMonitor& operator=(const DesktopAppearanceMonitor&) = delete;

  // The latest appearance. Any thread.
  DesktopAppearance current() const;

  void connected(GDBusConnection* bus) override;
  void disconnected() override;

 private:
  struct OnBus;  // GIO's callbacks

  // Requests all settings of the portal.
  void askForAll();
  // Replaces the portal's settings by those of the reply.
  void takeAll(GVariant* reply);
  // Calls `changed_` if the appearance has changed.
  void publish();

  const AppearanceSettings files_;
  const std::function<void(DesktopAppearance)> changed_;
  AppearanceSettings portal_;

  // While connected.
  GDBusConnection* bus_ = nullptr;
  GObjectPointer<GCancellable> cancellable_;
  unsigned portalWatch_ = 0;
  unsigned settingSignal_ = 0;

  mutable std::mutex mutex_;
  DesktopAppearance current_;
};

}  // namespace glintboard
