// SPDX-License-Identifier: MIT
#include "platform/linux/base/desktop_bus.h"

#include <pthread.h>

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <utility>

namespace glintboard {
namespace {

constexpr std::chrono::seconds busTimeout{2};
constexpr std::chrono::seconds shortestPause{1};
constexpr std::chrono::seconds longestPause{30};

using Work = std::function<void()>;

// Whether nothing listens at an address: a try would cost GIO a thread. Only for a lone plain path,
// as nearly all addresses are.
bool isMissing(const std::string& address) {
  constexpr std::string_view prefix = "unix:path=";
  if (!address.starts_with(prefix) || address.find_first_of(",;%") != std::string::npos) {
    return false;
  }
  std::error_code unknown;
  return !std::filesystem::exists(address.substr(prefix.size()), unknown) && !unknown;
}

// Gives `source` to `context`, where it runs `work` once. The caller owns the result.
GSource* start(GMainContext* context, GSource* source, Work work) {
  const auto call = [](void* data) -> int {
    (*static_cast<Work*>(data))();
    return G_SOURCE_REMOVE;
  };
  const auto drop = [](void* data) { delete static_cast<Work*>(data); };
  g_source_set_priority(source, G_PRIORITY_DEFAULT);
  g_source_set_callback(source, call, new Work(std::move(work)), drop);
  g_source_attach(source, context);
  return source;
}

GLibPointer<GSource> after(GMainContext* context, std::chrono::milliseconds delay, Work work) {
  return GLibPointer<GSource>(
      start(context, g_timeout_source_new(static_cast<unsigned>(delay.count())), std::move(work)));
}

}  // namespace

DesktopBus::DesktopBus(std::function<std::string()> address)
    : address_(std::move(address)),
      context_(g_main_context_new()),
      loop_(g_main_loop_new(context_.get(), FALSE)),
      thread_([this] { run(); }) {
  post([this] { connect(); });
}

DesktopBus::~DesktopBus() {
  post([this] {
    stopped_ = true;
    nextTry_.reset();
    deadline_.reset();
    if (cancellable_) {
      g_cancellable_cancel(cancellable_.get());
    }
    if (bus_) {
      closed();
    }
    clients_.clear();
    g_main_loop_quit(loop_.get());
  });
  thread_.join();
}

void DesktopBus::add(std::shared_ptr<Client> client) {
  post([this, client = std::move(client)] {
    clients_.push_back(client);
    if (bus_) {
      client->connected(bus_.get());
    } else if (failed_) {
      client->disconnected();
    }
  });
}

void DesktopBus::post(Work work) {
  // The context keeps it until it has run.
  g_source_unref(start(context_.get(), g_idle_source_new(), std::move(work)));
}

void DesktopBus::run() {
  pthread_setname_np(pthread_self(), "desktop bus");
  g_main_context_push_thread_default(context_.get());
  g_main_loop_run(loop_.get());
  // What GIO still has to free waits in the context.
  while (g_main_context_iteration(context_.get(), FALSE) != 0) {
  }
  g_main_context_pop_thread_default(context_.get());
}

void DesktopBus::connect() {
  const auto address = address_();
  if (address.empty() || isMissing(address)) {
    failed();
    tryLater();
    return;
  }
  cancellable_.reset(g_cancellable_new());
  deadline_ =
      after(context_.get(), busTimeout, [this] { g_cancellable_cancel(cancellable_.get()); });
  const auto done = [](GObject*, GAsyncResult* result, void* self) {
    static_cast<DesktopBus*>(self)->connected(result);
  };
  g_dbus_connection_new_for_address(address.c_str(), messageBusFlags(), nullptr, cancellable_.get(),
                                    done, this);
}

void DesktopBus::connected(GAsyncResult* result) {
  deadline_.reset();
  cancellable_.reset();
  bus_.reset(g_dbus_connection_new_for_address_finish(result, nullptr));
  if (stopped_) {
    bus_.reset();
    return;
  }
  if (!bus_) {
    failed();
    tryLater();
    return;
  }
  pause_ = shortestPause;
  failed_ = false;
  const auto gone = [](GDBusConnection*, int, GError*, void* self) {
    static_cast<DesktopBus*>(self)->closed();
  };
  g_signal_connect(bus_.get(), "closed", G_CALLBACK(+gone), this);
  for (const auto& client : clients_) {
    client->connected(bus_.get());
  }
}

void DesktopBus::closed() {
  g_signal_handlers_disconnect_by_data(bus_.get(), this);
  failed();
  if (!stopped_) {
    bus_.reset();
    tryLater();
    return;
  }
  g_dbus_connection_close(bus_.get(), nullptr, nullptr, nullptr);
  bus_.reset();
}

void DesktopBus::failed() {
  if (!std::exchange(failed_, true)) {
    for (const auto& client : clients_) {
      client->disconnected();
    }
  }
}

void DesktopBus::tryLater() {
  nextTry_ = after(context_.get(), pause_, [this] { connect(); });
  pause_ = std::min(pause_ * 2, longestPause);
}

}  // namespace glintboard
