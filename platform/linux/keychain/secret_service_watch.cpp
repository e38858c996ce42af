// SPDX-License-Identifier: MIT
#include "platform/linux/keychain/secret_service_watch.h"

#include <array>
#include <chrono>
#include <utility>

#include "platform/linux/keychain/secret_service_names.h"

namespace glintboard {
namespace {

constexpr std::chrono::milliseconds firstPause{50};
constexpr std::chrono::milliseconds longestPause{3200};

// Whether the service has its name already and its objects not yet.
bool isStarting(const GError& error) {
  return g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD) ||
         g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_OBJECT) ||
         g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_INTERFACE);
}

}  // namespace

class SecretServiceWatch::Client : public DesktopBus::Client {
 public:
  explicit Client(std::function<void()> readable) : readable_(std::move(readable)) {}

  void connected(GDBusConnection* bus) override {
    bus_ = bus;
    subscriptions_ = {
        subscribe("org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged",
                  "/org/freedesktop/DBus", SecretServiceNames::bus, ownerChanged),
        // Collections that are unlocked, and those that come with a database that is opened.
        subscribe(SecretServiceNames::bus, SecretServiceNames::interface, nullptr,
                  SecretServiceNames::path, nullptr, changed),
        subscribe(SecretServiceNames::bus, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                  nullptr, nullptr, changed)};
    // What has changed before the subscriptions is found by the first question.
    askAnew();
  }

  void disconnected() override {
    stopAsking();
    if (auto* const bus = std::exchange(bus_, nullptr)) {
      for (const unsigned subscription : subscriptions_) {
        g_dbus_connection_signal_unsubscribe(bus, subscription);
      }
    }
  }

  void askAnew() {
    pause_ = firstPause;
    ask();
  }

 private:
  unsigned subscribe(const char* sender, const char* interface, const char* member,
                     const char* path, const char* firstArgument, GDBusSignalCallback callback) {
    return g_dbus_connection_signal_subscribe(bus_, sender, interface, member, path, firstArgument,
                                              G_DBUS_SIGNAL_FLAGS_NONE, callback, this, nullptr);
  }

  static void ownerChanged(GDBusConnection*, const char*, const char*, const char*, const char*,
                           GVariant* arguments, void* self) {
    const char* owner = "";
    if (g_variant_is_of_type(arguments, G_VARIANT_TYPE("(sss)")) != 0) {
      g_variant_get_child(arguments, 2, "&s", &owner);
    }
    if (*owner != '\0') {
      static_cast<Client*>(self)->askAnew();
    }
  }

  static void changed(GDBusConnection*, const char*, const char*, const char*, const char*,
                      GVariant*, void* self) {
    static_cast<Client*>(self)->readable_();
  }

  // Waits for the answer as long as it takes.
  void ask() {
    stopAsking();
    if (bus_ == nullptr) {
      return;
    }
    cancellable_.reset(g_cancellable_new());
    const auto answered = [](GObject* bus, GAsyncResult* result, void* self) {
      GLibPointer<GError> error;
      const GLibPointer<GVariant> reply(
          g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, leftIn(error)));
      // Who was cancelled may be gone.
      if (!error || !g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
        static_cast<Client*>(self)->answered(error.get());
      }
    };
    g_dbus_connection_call(bus_, SecretServiceNames::bus, SecretServiceNames::path,
                           SecretServiceNames::interface, "ReadAlias",
                           g_variant_new("(s)", "default"), nullptr, G_DBUS_CALL_FLAGS_NONE,
                           G_MAXINT, cancellable_.get(), answered, this);
  }

  void answered(const GError* error) {
    if (error == nullptr) {
      readable_();
    } else if (isStarting(*error) && pause_ <= longestPause) {
      askAfter(std::exchange(pause_, 2 * pause_));
    }
  }

  void askAfter(std::chrono::milliseconds pause) {
    nextQuestion_.reset(g_timeout_source_new(static_cast<unsigned>(pause.count())));
    const auto due = [](void* self) -> int {
      static_cast<Client*>(self)->ask();
      return G_SOURCE_REMOVE;
    };
    g_source_set_callback(nextQuestion_.get(), due, this, nullptr);
    g_source_attach(nextQuestion_.get(), g_main_context_get_thread_default());
  }

  void stopAsking() {
    nextQuestion_.reset();
    if (const auto asking = std::exchange(cancellable_, nullptr)) {
      g_cancellable_cancel(asking.get());
    }
  }

  const std::function<void()> readable_;

  // While connected.
  GDBusConnection* bus_ = nullptr;
  std::array<unsigned, 3> subscriptions_{};
  GObjectPointer<GCancellable> cancellable_;
  GLibPointer<GSource> nextQuestion_;
  std::chrono::milliseconds pause_ = firstPause;
};

SecretServiceWatch::SecretServiceWatch(std::function<void()> readable)
    : client_(std::make_shared<Client>(std::move(readable))) {
  bus_.add(client_);
}

void SecretServiceWatch::ask() {
  bus_.post([client = client_] { client->askAnew(); });
}

}  // namespace glintboard
