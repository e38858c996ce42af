// SPDX-License-Identifier: MIT
#include "platform/linux/desktop/desktop_appearance.h"

#include <utility>

namespace glintboard {
namespace {

constexpr const char* portalName = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* settingsInterface = "org.freedesktop.portal.Settings";
constexpr int portalTimeout = 5000;  // milliseconds

}  // namespace

struct DesktopAppearanceMonitor::OnBus {
  static DesktopAppearanceMonitor& monitor(void* self) {
    return *static_cast<DesktopAppearanceMonitor*>(self);
  }

  static void portalCame(GDBusConnection*, const char*, const char*, void* self) {
    monitor(self).askForAll();
  }

  static void answered(GObject* bus, GAsyncResult* result, void* self) {
    GLibPointer<GError> error;
    const GLibPointer<GVariant> reply(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, leftIn(error)));
    // After a cancellation `self` may have been destroyed.
    if (reply) {
      monitor(self).takeAll(reply.get());
    }
  }

  static void settingChanged(GDBusConnection*, const char*, const char*, const char*, const char*,
                             GVariant* arguments, void* self) {
    if (g_variant_is_of_type(arguments, G_VARIANT_TYPE("(ssv)")) == 0) {
      return;
    }
    const char* space = nullptr;
    const char* key = nullptr;
    GLibPointer<GVariant> value;
    g_variant_get(arguments, "(&s&sv)", &space, &key, static_cast<GVariant**>(leftIn(value)));
    monitor(self).portal_.take(space, key, value.get());
    monitor(self).publish();
  }
};

DesktopAppearanceMonitor::DesktopAppearanceMonitor(const XdgFolders& folders,
                                                   std::function<void(DesktopAppearance)> changed)
    : files_(appearanceSettingsInFiles(folders)),
      changed_(std::move(changed)),
      current_(files_.resolved({})) {}

DesktopAppearanceMonitor::~DesktopAppearanceMonitor() = default;

DesktopAppearance DesktopAppearanceMonitor::current() const {
  const std::lock_guard lock(mutex_);
  return current_;
}

void DesktopAppearanceMonitor::connected(GDBusConnection* bus) {
  bus_ = bus;
  cancellable_.reset(g_cancellable_new());
  settingSignal_ = g_dbus_connection_signal_subscribe(
      bus_, portalName, settingsInterface, "SettingChanged", portalPath, nullptr,
      G_DBUS_SIGNAL_FLAGS_NONE, OnBus::settingChanged, this, nullptr);
  portalWatch_ =
      g_bus_watch_name_on_connection(bus_, portalName, G_BUS_NAME_WATCHER_FLAGS_AUTO_START,
                                     OnBus::portalCame, nullptr, this, nullptr);
}

void DesktopAppearanceMonitor::disconnected() {
  if (bus_ != nullptr) {
    g_cancellable_cancel(cancellable_.get());
    g_bus_unwatch_name(portalWatch_);
    g_dbus_connection_signal_unsubscribe(bus_, settingSignal_);
    bus_ = nullptr;
  }
}

void DesktopAppearanceMonitor::askForAll() {
  constexpr const char* spaces[] = {"org.freedesktop.appearance", "org.gnome.desktop.interface",
                                    "org.gnome.desktop.a11y.interface", nullptr};
  g_dbus_connection_call(bus_, portalName, portalPath, settingsInterface, "ReadAll",
                         g_variant_new("(^as)", spaces), G_VARIANT_TYPE("(a{sa{sv}})"),
                         G_DBUS_CALL_FLAGS_NONE, portalTimeout, cancellable_.get(), OnBus::answered,
                         this);
}

void DesktopAppearanceMonitor::takeAll(GVariant* reply) {
  portal_ = {};
  // The namespace of the portal's own settings comes first and wins over the desktop's.
  const GLibPointer<GVariant> spaces(g_variant_get_child_value(reply, 0));
  GVariantIter outer;
  g_variant_iter_init(&outer, spaces.get());
  const char* space = nullptr;
  GVariantIter* settings = nullptr;
  while (g_variant_iter_loop(&outer, "{&sa{sv}}", &space, &settings) != 0) {
    const char* key = nullptr;
    GVariant* value = nullptr;
    while (g_variant_iter_loop(settings, "{&sv}", &key, &value) != 0) {
      portal_.take(space, key, value);
    }
  }
  publish();
}

void DesktopAppearanceMonitor::publish() {
  const auto appearance = portal_.resolved(files_);
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(current_, appearance) == appearance) {
      return;
    }
  }
  changed_(appearance);
}

}  // namespace glintboard
