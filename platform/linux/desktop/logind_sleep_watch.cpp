// SPDX-License-Identifier: MIT
#include "platform/linux/desktop/logind_sleep_watch.h"

#include <utility>

namespace glintboard {
namespace {

class Client : public DesktopBus::Client {
 public:
  explicit Client(std::function<void()> woken) : woken_(std::move(woken)) {}

  void connected(GDBusConnection* bus) override {
    const auto onSignal = [](GDBusConnection*, const char*, const char*, const char*, const char*,
                             GVariant* arguments, void* self) {
      int beginning = 0;
      if (g_variant_is_of_type(arguments, G_VARIANT_TYPE("(b)")) != 0) {
        g_variant_get(arguments, "(b)", &beginning);
        if (beginning == 0) {
          static_cast<Client*>(self)->woken_();
        }
      }
    };
    bus_ = bus;
    signal_ = g_dbus_connection_signal_subscribe(
        bus, "org.freedesktop.login1", "org.freedesktop.login1.Manager", "PrepareForSleep",
        "/org/freedesktop/login1", nullptr, G_DBUS_SIGNAL_FLAGS_NONE, onSignal, this, nullptr);
  }

  void disconnected() override {
    if (auto* const bus = std::exchange(bus_, nullptr)) {
      g_dbus_connection_signal_unsubscribe(bus, signal_);
    }
  }

 private:
  const std::function<void()> woken_;
  GDBusConnection* bus_ = nullptr;
  unsigned signal_ = 0;
};

}  // namespace

void LogindSleepWatch::start(std::function<void()> woken) {
  bus_.add(std::make_shared<Client>(std::move(woken)));
}

}  // namespace glintboard
