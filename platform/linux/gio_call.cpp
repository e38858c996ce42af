#include "platform/linux/gio_call.h"

#include <cstdlib>
#include <filesystem>

namespace glintboard {

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
  // GIO frees what it kept for signals in the context of the calls. A call that was given up must
  // not report any more.
  while (!gaveUp_ && g_main_context_iteration(context_.get(), FALSE)) {
  }
  g_main_context_pop_thread_default(context_.get());
}

GObjectPointer<GAsyncResult> GioCalls::run(const Start& start) {
  GObjectPointer<GAsyncResult> result;
  const auto keep = [](GObject*, GAsyncResult* arrived, void* place) {
    static_cast<GObjectPointer<GAsyncResult>*>(place)->reset(
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
        g_bus_get(G_BUS_TYPE_SESSION, cancellable, callback, data);
      });
  if (!result) {
    error.reset(g_error_new_literal(G_IO_ERROR, G_IO_ERROR_CANCELLED, "no answer"));
    return nullptr;
  }
  GObjectPointer<GDBusConnection> bus(g_bus_get_finish(result.get(), leftIn(error)));
  if (bus) {
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
  }
  return bus;
}

}  // namespace glintboard
