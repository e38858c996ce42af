// SPDX-License-Identifier: MIT
#include "platform/linux/windows/wayland_session.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace glintboard {

struct WaylandSession::Listeners {
  static void global(void* data, wl_registry* /*registry*/, std::uint32_t name,
                     const char* interface, std::uint32_t /*version*/) {
    static_cast<WaylandSession*>(data)->bind(name, interface);
  }
  static void globalRemoved(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}

  static void toplevel(void* data, zwlr_foreign_toplevel_manager_v1* /*manager*/,
                       zwlr_foreign_toplevel_handle_v1* toplevel) {
    static_cast<WaylandSession*>(data)->add(toplevel);
  }
  static void finished(void* data, zwlr_foreign_toplevel_manager_v1* /*manager*/) {
    static_cast<WaylandSession*>(data)->stop();
  }

  static void title(void* /*data*/, zwlr_foreign_toplevel_handle_v1* /*proxy*/,
                    const char* /*title*/) {}
  static void applicationId(void* data, zwlr_foreign_toplevel_handle_v1* /*proxy*/,
                            const char* id) {
    static_cast<Toplevel*>(data)->applicationId = id;
  }
  static void output(void* /*data*/, zwlr_foreign_toplevel_handle_v1* /*proxy*/,
                     wl_output* /*output*/) {}
  static void state(void* data, zwlr_foreign_toplevel_handle_v1* /*proxy*/, wl_array* states) {
    auto& toplevel = *static_cast<Toplevel*>(data);
    const auto* first = static_cast<const std::uint32_t*>(states->data);
    const auto* last = first + states->size / sizeof *first;
    toplevel.active =
        std::find(first, last, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) != last;
  }
  static void done(void* data, zwlr_foreign_toplevel_handle_v1* /*proxy*/) {
    const auto& toplevel = *static_cast<Toplevel*>(data);
    toplevel.session->described(toplevel);
  }
  static void closed(void* data, zwlr_foreign_toplevel_handle_v1* /*proxy*/) {
    const auto& toplevel = *static_cast<Toplevel*>(data);
    auto& session = *toplevel.session;
    const auto handle = toplevel.handle;
    session.windows().remove(handle);
    session.toplevels_.erase(handle);
  }

  static void answered(void* data, wl_callback* /*callback*/, std::uint32_t /*serial*/) {
    auto& session = *static_cast<WaylandSession*>(data);
    session.sentPings_.pop_front();
    session.pingAnswered();
  }
  static void token(void* data, xdg_activation_token_v1* /*token*/, const char* text) {
    *static_cast<std::string*>(data) = text;
  }

  static constexpr wl_registry_listener ofRegistry{global, globalRemoved};
  static constexpr zwlr_foreign_toplevel_manager_v1_listener ofManager{toplevel, finished};
  static constexpr zwlr_foreign_toplevel_handle_v1_listener ofToplevel{
      title, applicationId, output, output, state, done, closed};
  static constexpr wl_callback_listener ofPing{answered};
  static constexpr xdg_activation_token_v1_listener ofToken{token};
};

Awaitable<std::shared_ptr<DisplaySession>> WaylandSession::open(
    asio::any_io_executor service, std::string socket, std::shared_ptr<OpenWindows> windows,
    std::function<void()> withoutList) {
  auto connected = connectToSocket(socket);
  // Takes the socket, also when it fails.
  WaylandPointer<wl_display> display(connected ? wl_display_connect_to_fd(connected.release())
                                               : nullptr);
  if (!display) {
    withoutList();
    co_return nullptr;
  }
  co_return std::make_shared<WaylandSession>(service, std::move(display), std::move(windows),
                                             std::move(withoutList));
}

WaylandSession::WaylandSession(const asio::any_io_executor& service,
                               WaylandPointer<wl_display> display,
                               std::shared_ptr<OpenWindows> windows,
                               std::function<void()> withoutList)
    : DisplaySession(service, std::move(windows)),
      display_(std::move(display)),
      withoutList_(std::move(withoutList)),
      registry_(wl_display_get_registry(display_.get())) {
  wl_registry_add_listener(registry_.get(), &Listeners::ofRegistry, this);
}

WaylandSession::~WaylandSession() = default;

int WaylandSession::socket() const {
  return wl_display_get_fd(display_.get());
}

// The compositor announces its globals before it answers.
void WaylandSession::begin() {
  ping();
}

bool WaylandSession::receive() {
  auto* const display = display_.get();
  bool failed = false;
  while (!failed && !ended() && wl_display_prepare_read(display) != 0) {
    failed = wl_display_dispatch_pending(display) < 0;
  }
  if (!failed && !ended()) {
    // Does not block: the socket is non-blocking.
    failed = wl_display_read_events(display) < 0 || wl_display_dispatch_pending(display) < 0;
    flush();
  }
  if (failed) {
    setEnded();
  }
  if (hasAnswered() && !ended()) {
    const auto tell = std::exchange(withoutList_, nullptr);
    if (tell && !manager_) {
      tell();
    }
  }
  notify();
  return !ended();
}

void WaylandSession::flush() {
  // A later flush sends what a full socket has left unsent.
  if (wl_display_flush(display_.get()) < 0 && errno != EAGAIN) {
    stop();
  }
}

void WaylandSession::bind(std::uint32_t name, const std::string& interface) {
  const auto bound = [&](const wl_interface& wanted) {
    return wl_registry_bind(registry_.get(), name, &wanted, 1);
  };
  if (interface == wl_seat_interface.name && !seat_) {
    seat_.reset(static_cast<wl_seat*>(bound(wl_seat_interface)));
  } else if (interface == xdg_activation_v1_interface.name && !activation_) {
    activation_.reset(static_cast<xdg_activation_v1*>(bound(xdg_activation_v1_interface)));
  } else if (interface == zwlr_foreign_toplevel_manager_v1_interface.name && !manager_) {
    manager_.reset(static_cast<zwlr_foreign_toplevel_manager_v1*>(
        bound(zwlr_foreign_toplevel_manager_v1_interface)));
    zwlr_foreign_toplevel_manager_v1_add_listener(manager_.get(), &Listeners::ofManager, this);
  }
}

void WaylandSession::add(zwlr_foreign_toplevel_handle_v1* proxy) {
  auto toplevel = std::make_unique<Toplevel>();
  toplevel->session = this;
  toplevel->handle = ++lastHandle_;
  toplevel->proxy.reset(proxy);
  zwlr_foreign_toplevel_handle_v1_add_listener(proxy, &Listeners::ofToplevel, toplevel.get());
  toplevels_[lastHandle_] = std::move(toplevel);
}

void WaylandSession::described(const Toplevel& toplevel) {
  WindowIdentity identity;
  identity.applicationId = toplevel.applicationId;
  windows().put(toplevel.handle, std::move(identity));
  if (toplevel.active) {
    windows().used(toplevel.handle);
  }
}

void WaylandSession::sendPing() {
  auto& callback = sentPings_.emplace_back(wl_display_sync(display_.get()));
  wl_callback_add_listener(callback.get(), &Listeners::ofPing, this);
  flush();
}

Awaitable<bool> WaylandSession::activate(std::vector<OpenWindows::Handle> windows) {
  const auto window = windows.front();
  const auto known = toplevels_.find(window);
  if (known == toplevels_.end() || !seat_ || !isUsable()) {
    co_return false;
  }
  const auto deadline = Clock::now() + tapTimeout;
  auto* const proxy = known->second->proxy.get();
  zwlr_foreign_toplevel_handle_v1_unset_minimized(proxy);
  zwlr_foreign_toplevel_handle_v1_activate(proxy, seat_.get());
  const bool answers = co_await isAnswering(deadline);
  if (!answers) {
    co_return false;
  }
  // The compositor may report the focus later than it has handled the request.
  const auto isActive = [&] {
    const auto now = toplevels_.find(window);
    return now != toplevels_.end() && now->second->active;
  };
  const auto isSettled = [&] { return isActive() || !toplevels_.contains(window); };
  const bool settled = co_await waitUntil(isSettled, deadline);
  co_return settled&& isActive();
}

Awaitable<LaunchToken> WaylandSession::launchToken() {
  LaunchToken token;
  if (!activation_ || !isUsable()) {
    co_return token;
  }
  const WaylandPointer<xdg_activation_token_v1> request(
      xdg_activation_v1_get_activation_token(activation_.get()));
  xdg_activation_token_v1_add_listener(request.get(), &Listeners::ofToken, &token.activationToken);
  xdg_activation_token_v1_commit(request.get());
  co_await isAnswering(Clock::now() + tapTimeout);
  // Programs that support only X11's variable read the token from there.
  token.startupId = token.activationToken;
  co_return token;
}

}  // namespace glintboard
