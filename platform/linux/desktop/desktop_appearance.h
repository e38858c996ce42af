// SPDX-License-Identifier: MIT
// The look that the desktop's settings ask for, as it changes.
#pragma once

#include <functional>
#include <mutex>

#include "platform/linux/base/desktop_bus.h"
#include "platform/linux/desktop/appearance_settings.h"

namespace glintboard {

// Begins with what the settings files say, and follows the desktop portal where there is one.
class DesktopAppearanceMonitor : public DesktopBus::Client {
 public:
  // Reads the files. `changed` is called on the bus's thread.
  DesktopAppearanceMonitor(const XdgFolders& folders,
                           std::function<void(DesktopAppearance)> changed);
  ~DesktopAppearanceMonitor() override;
  DesktopAppearanceMonitor(const DesktopAppearanceMonitor&) = delete;
  DesktopAppearanceMonitor& operator=(const DesktopAppearanceMonitor&) = delete;

  // Any thread.
  DesktopAppearance current() const;

  void connected(GDBusConnection* bus) override;
  void disconnected() override;

 private:
  struct OnBus;  // what GIO calls

  void askForAll();
  void takeAll(GVariant* reply);
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
