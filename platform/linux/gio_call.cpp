#include "platform/linux/gio_call.h"

namespace glintboard {

GioCalls::GioCalls(std::chrono::milliseconds deadline)
    : context_(g_main_context_new()),
      cancellable_(g_cancellable_new()),
      deadline_(g_timeout_source_new(static_cast<unsigned>(deadline.count()))) {
  g_main_context_push_thread_default(context_.get());
  const auto cancel = [](void* cancellable) -> int {
    g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
    return G_SOURCE_REMOVE;
  };
  g_source_set_callback(deadline_.get(), cancel, cancellable_.get(), nullptr);
  g_source_attach(deadline_.get(), context_.get());
}

GioCalls::~GioCalls() {
  g_main_context_pop_thread_default(context_.get());
}

GObjectPointer<GAsyncResult> GioCalls::run(const Start& start) {
  GObjectPointer<GAsyncResult> result;
  const auto keep = [](GObject*, GAsyncResult* arrived, void* place) {
    static_cast<GObjectPointer<GAsyncResult>*>(place)->reset(
        static_cast<GAsyncResult*>(g_object_ref(arrived)));
  };
  start(cancellable_.get(), keep, &result);
  while (!result) {
    g_main_context_iteration(context_.get(), TRUE);
  }
  return result;
}

GObjectPointer<GDBusConnection> connectToSessionBus(GioCalls& calls, GLibPointer<GError>& error) {
  const auto result =
      calls.run([](GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
        g_bus_get(G_BUS_TYPE_SESSION, cancellable, callback, data);
      });
  GObjectPointer<GDBusConnection> bus(g_bus_get_finish(result.get(), leftIn(error)));
  if (bus) {
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
  }
  return bus;
}

}  // namespace glintboard
