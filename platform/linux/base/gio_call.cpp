// SPDX-License-Identifier: MIT
#include "platform/linux/base/gio_call.h"

#include <cstdlib>
#include <filesystem>
#include <mutex>

namespace glintboard {
namespace {

// GIO shares one connection to the session bus in a process. GIO returns a closed connection again
// as long as it is referenced, and it references itself until the main context in which it was
// created has handled the closing: so that context must outlive the calls.
class SharedConnection {
 public:
  static SharedConnection& instance() {
    static SharedConnection shared;
    return shared;
  }

  // Call it before getting the connection: releases a closed one and starts connecting.
  void prepare(GCancellable* cancellable) {
    const std::lock_guard guard(mutex_);
    if (kept_ && g_dbus_connection_is_closed(kept_.get()) != 0) {
      kept_.reset();
    }
    while (g_main_context_iteration(context_.get(), FALSE) != 0) {
    }
    const auto made = [](GObject*, GAsyncResult* result, void*) {
      surviveClosing(GObjectPointer<GDBusConnection>(g_bus_get_finish(result, nullptr)).get());
    };
    g_main_context_push_thread_default(context_.get());
    g_bus_get(G_BUS_TYPE_SESSION, cancellable, made, nullptr);
    g_main_context_pop_thread_default(context_.get());
  }

  // Keeps the connection open, because a prompt of the keyring ends with its connection.
  void keep(GDBusConnection* bus) {
    surviveClosing(bus);
    const std::lock_guard guard(mutex_);
    kept_.reset(G_DBUS_CONNECTION(g_object_ref(bus)));
  }

 private:
  // By default GIO ends the process when the bus closes the connection.
  static void surviveClosing(GDBusConnection* bus) {
    if (bus != nullptr) {
      g_dbus_connection_set_exit_on_close(bus, FALSE);
    }
  }

  std::mutex mutex_;
  GLibPointer<GMainContext> context_{g_main_context_new()};
  GObjectPointer<GDBusConnection> kept_;
};

}  // namespace

GioCalls::GioCalls(std::chrono::milliseconds deadline)
    : context_(g_main_context_new()), cancellable_(g_cancellable_new()) {
  const auto after = [this](std::chrono::milliseconds delay, GSourceFunc function, void* data) {
    GLibPointer<GSource> source(g_timeout_source_new(static_cast<unsigned>(delay.count())));
    g_source_set_callback(source.get(), function, data, nullptr);
    g_source_attach(source.get(), context_.get());
    return source;
  };
  const auto cancel = [](void* cancellable) -> int {
    g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
    return G_SOURCE_REMOVE;
  };
  const auto giveUp = [](void* gaveUp) -> int {
    *static_cast<bool*>(gaveUp) = true;
    return G_SOURCE_REMOVE;
  };
  g_main_context_push_thread_default(context_.get());
  deadline_ = after(deadline, cancel, cancellable_.get());
  giveUp_ = after(deadline + std::chrono::milliseconds(50), giveUp, &gaveUp_);
}

GioCalls::~GioCalls() {
  // GIO frees its signal data in the main context of the calls. A call that was given up must not
  // call back any more.
  while (!gaveUp_ && g_main_context_iteration(context_.get(), FALSE)) {
  }
  g_main_context_pop_thread_default(context_.get());
}

GObjectPointer<GAsyncResult> GioCalls::run(const Start& start) {
  GObjectPointer<GAsyncResult> result;
  const auto keep = [](GObject*, GAsyncResult* arrived, void* slot) {
    static_cast<GObjectPointer<GAsyncResult>*>(slot)->reset(
        static_cast<GAsyncResult*>(g_object_ref(arrived)));
  };
  start(cancellable_.get(), keep, &result);
  while (!result && !gaveUp_) {
    g_main_context_iteration(context_.get(), TRUE);
  }
  return result;
}

std::string sessionBusAddress() {
  const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  const char* runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
  if (address != nullptr && *address != '\0') {
    return address;
  }
  std::error_code ignored;
  const auto usual = std::filesystem::path(runtimeFolder == nullptr ? "" : runtimeFolder) / "bus";
  return usual.is_absolute() && std::filesystem::exists(usual, ignored)
             ? "unix:path=" + usual.string()
             : "";
}

std::string systemBusAddress() {
  const char* address = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
  return address != nullptr && *address != '\0' ? address : "unix:path=/run/dbus/system_bus_socket";
}

GDBusConnectionFlags messageBusFlags() {
  // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, declared as an enum.
  return static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                           G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
}

GObjectPointer<GDBusConnection> connectToSessionBus(GioCalls& calls, GLibPointer<GError>& error) {
  const auto result =
      calls.run([](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        SharedConnection::instance().prepare(cancellable);
        g_bus_get(G_BUS_TYPE_SESSION, cancellable, callback, data);
      });
  if (!result) {
    error.reset(g_error_new_literal(G_IO_ERROR, G_IO_ERROR_CANCELLED, "no answer"));
    return nullptr;
  }
  GObjectPointer<GDBusConnection> bus(g_bus_get_finish(result.get(), leftIn(error)));
  if (bus) {
    SharedConnection::instance().keep(bus.get());
  }
  return bus;
}

}  // namespace glintboard
