// SPDX-License-Identifier: MIT
#include "platform/linux/windows/wayland_session.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>

#include "platform/file_descriptor.h"
#include "platform/linux/windows/window_system.h"

namespace glintboard {

namespace {

FileDescriptor connectTo(const std::string& path) {
  sockaddr_un address{};
  if (path.size() >= sizeof address.sun_path) {
    return {};
  }
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  // Without blocking: a compositor that takes no more connections is as good as none.
  FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (socket &&
      ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    return {};
  }
  return socket;
}

}  // namespace

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
    session.windows_->remove(handle);
    session.toplevels_.erase(handle);
  }

  static void answered(void* data, wl_callback* /*callback*/, std::uint32_t /*serial*/) {
    auto& session = *static_cast<WaylandSession*>(data);
    ++session.answered_;
    session.questions_.erase(session.answered_);
    session.hangs_ = false;
  }
  static void token(void* data, xdg_activation_token_v1* /*token*/, const char* text) {
    *static_cast<std::string*>(data) = text;
  }

  static constexpr wl_registry_listener ofRegistry{global, globalRemoved};
  static constexpr zwlr_foreign_toplevel_manager_v1_listener ofManager{toplevel, finished};
  static constexpr zwlr_foreign_toplevel_handle_v1_listener ofToplevel{
      title, applicationId, output, output, state, done, closed};
  static constexpr wl_callback_listener ofQuestion{answered};
  static constexpr xdg_activation_token_v1_listener ofToken{token};
};

std::shared_ptr<WaylandSession> WaylandSession::connect(const asio::any_io_executor& service,
                                                        const std::string& socket,
                                                        std::shared_ptr<OpenWindows> windows,
                                                        std::function<void()> withoutList) {
  auto connected = connectTo(socket);
  if (!connected) {
    return nullptr;
  }
  // Takes the socket, whether it succeeds or not.
  WaylandPointer<wl_display> display(wl_display_connect_to_fd(connected.release()));
  if (!display) {
    return nullptr;
  }
  return std::shared_ptr<WaylandSession>(
      new WaylandSession(service, std::move(display), std::move(windows), std::move(withoutList)));
}

WaylandSession::WaylandSession(const asio::any_io_executor& service,
                               WaylandPointer<wl_display> display,
                               std::shared_ptr<OpenWindows> windows,
                               std::function<void()> withoutList)
    : display_(std::move(display)),
      windows_(std::move(windows)),
      withoutList_(std::move(withoutList)),
      readable_(service),
      registry_(wl_display_get_registry(display_.get())) {
  wl_registry_add_listener(registry_.get(), &Listeners::ofRegistry, this);
}

WaylandSession::~WaylandSession() = default;

Awaitable<> WaylandSession::run(std::shared_ptr<WaylandSession> self) {
  const int descriptor = ::fcntl(wl_display_get_fd(self->display_.get()), F_DUPFD_CLOEXEC, 0);
  if (descriptor >= 0) {
    self->readable_.assign(descriptor);
    bool listKnown = false;
    // What the compositor offers comes before the answer to this.
    self->ask();
    while (self->receive()) {
      if (!listKnown && self->answered_ > 0) {
        listKnown = true;
        if (!self->manager_) {
          self->withoutList_();
        }
      }
      const auto [error] = co_await self->readable_.async_wait(
          asio::posix::stream_descriptor::wait_read, asio::as_tuple(asio::use_awaitable));
      if (error) {
        break;
      }
    }
  }
  self->ended_ = true;
  self->readable_.close();
  self->windows_->clear();
  self->signal_.notify();
}

void WaylandSession::stop() {
  ended_ = true;
  error_code ignored;
  readable_.cancel(ignored);
}

bool WaylandSession::receive() {
  auto* const display = display_.get();
  while (!ended_ && wl_display_prepare_read(display) != 0) {
    ended_ = wl_display_dispatch_pending(display) < 0;
  }
  if (ended_) {
    return false;
  }
  // Does not block: the socket is non-blocking.
  ended_ = wl_display_read_events(display) < 0 || wl_display_dispatch_pending(display) < 0;
  flush();
  signal_.notify();
  return !ended_;
}

void WaylandSession::flush() {
  // What a full socket leaves unsent goes with a later message.
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
  windows_->put(toplevel.handle, std::move(identity));
  if (toplevel.active) {
    windows_->used(toplevel.handle);
  }
}

unsigned WaylandSession::ask() {
  const unsigned question = ++asked_;
  auto& callback = questions_[question];
  callback.reset(wl_display_sync(display_.get()));
  wl_callback_add_listener(callback.get(), &Listeners::ofQuestion, this);
  return question;
}

Awaitable<bool> WaylandSession::handled(std::shared_ptr<WaylandSession> self,
                                        Clock::time_point deadline) {
  const unsigned own = self->ask();
  self->flush();
  while (self->answered_ < own) {
    if (self->ended_ || Clock::now() >= deadline) {
      self->hangs_ = true;
      co_return false;
    }
    co_await self->signal_.next(deadline);
  }
  co_return true;
}

Awaitable<bool> WaylandSession::activate(std::shared_ptr<WaylandSession> self,
                                         OpenWindows::Handle window) {
  const auto known = self->toplevels_.find(window);
  // Nothing more is sent to a compositor that does not read.
  if (known == self->toplevels_.end() || !self->seat_ || self->ended_ || self->hangs_) {
    co_return false;
  }
  const auto deadline = Clock::now() + tapTimeout;
  auto* const proxy = known->second->proxy.get();
  zwlr_foreign_toplevel_handle_v1_unset_minimized(proxy);
  zwlr_foreign_toplevel_handle_v1_activate(proxy, self->seat_.get());
  auto asking = handled(self, deadline);
  const bool answers = co_await std::move(asking);
  // The compositor may tell of the focus later than of having handled the request.
  while (answers && !self->ended_ && Clock::now() < deadline) {
    const auto now = self->toplevels_.find(window);
    if (now == self->toplevels_.end()) {
      break;
    }
    if (now->second->active) {
      co_return true;
    }
    co_await self->signal_.next(deadline);
  }
  co_return false;
}

Awaitable<std::string> WaylandSession::activationToken(std::shared_ptr<WaylandSession> self) {
  std::string text;
  if (!self->activation_ || self->ended_ || self->hangs_) {
    co_return text;
  }
  const auto deadline = Clock::now() + tapTimeout;
  const WaylandPointer<xdg_activation_token_v1> token(
      xdg_activation_v1_get_activation_token(self->activation_.get()));
  xdg_activation_token_v1_add_listener(token.get(), &Listeners::ofToken, &text);
  xdg_activation_token_v1_commit(token.get());
  auto asking = handled(self, deadline);
  co_await std::move(asking);
  co_return text;
}

}  // namespace glintboard
