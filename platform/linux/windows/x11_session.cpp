// SPDX-License-Identifier: MIT
#include "platform/linux/windows/x11_session.h"

#include <fcntl.h>

#include <algorithm>

#include "platform/linux/base/c_pointer.h"
#include "platform/linux/base/host_name.h"
#include "platform/linux/windows/window_system.h"
#include "platform/spawn.h"

namespace glintboard {

namespace {

using namespace std::chrono_literals;

// How long a window may be missing from the list: while its manager is replaced, it is shown and
// in no list.
constexpr auto timeoutWhileShown = 2s;
constexpr auto timeoutWhileHidden = 50ms;

using Event = CPointer<xcb_generic_event_t>;

void select(xcb_connection_t* connection, xcb_window_t window, std::uint32_t events) {
  xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
}

}  // namespace

X11Session::X11Session(asio::any_io_executor service, std::unique_ptr<X11Connection> connection,
                       std::shared_ptr<OpenWindows> windows)
    : service_(std::move(service)),
      connection_(std::move(connection)),
      windows_(std::move(windows)),
      atoms_(connection_->atoms()),
      hostName_(kernelHostName()),
      properties_(connection_->get()),
      readable_(service_) {}

Awaitable<> X11Session::run(std::shared_ptr<X11Session> self) {
  const int descriptor =
      ::fcntl(xcb_get_file_descriptor(self->connection_->get()), F_DUPFD_CLOEXEC, 0);
  if (descriptor >= 0 && !self->ended_) {
    self->readable_.assign(descriptor);
    select(self->connection_->get(), self->connection_->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    self->askForManager();
    self->askForList();
    self->askForActiveWindow();
    self->askForDesktop();
    while (self->receive()) {
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

void X11Session::stop() {
  ended_ = true;
  error_code ignored;
  readable_.cancel(ignored);
}

bool X11Session::receive() {
  auto* const connection = connection_->get();
  bool any = true;
  const auto take = [&](xcb_generic_event_t* event) {
    const Event owned(event);
    if (owned) {
      handle(*owned);
      any = true;
    }
    return owned != nullptr;
  };
  // Each of these may read more from the socket than it returns, sending too. So nothing is left
  // when a round finds nothing and ends with the one that does not read.
  while (std::exchange(any, false) && !ended_) {
    xcb_flush(connection);
    while (take(xcb_poll_for_event(connection))) {
    }
    any = properties_.receive() || any;
    while (take(xcb_poll_for_queued_event(connection))) {
    }
    for (const auto window : std::exchange(changed_, {})) {
      askForIdentity(window);
      any = true;
    }
  }
  ended_ = ended_ || xcb_connection_has_error(connection) != 0;
  signal_.notify();
  return !ended_;
}

void X11Session::handle(const xcb_generic_event_t& event) {
  constexpr std::uint8_t sentByClient = 0x80;
  switch (event.response_type & ~sentByClient) {
    case XCB_PROPERTY_NOTIFY:
      propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
      break;
    case XCB_DESTROY_NOTIFY:
      forget(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
      break;
    case XCB_MAP_NOTIFY: {
      const auto known = known_.find(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
      if (known != known_.end()) {
        known->second.mapped = true;
      }
      break;
    }
    case XCB_UNMAP_NOTIFY: {
      const auto known =
          known_.find(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
      if (known != known_.end()) {
        known->second.mapped = false;
      }
      break;
    }
    default:
      break;
  }
}

void X11Session::propertyChanged(const xcb_property_notify_event_t& event) {
  if (event.window == connection_->window()) {
    ++timesTold_;
    time_ = event.time;
    hangs_ = false;
  } else if (event.window == connection_->root()) {
    if (event.atom == atoms_.clientList) {
      askForList();
    } else if (event.atom == atoms_.activeWindow) {
      askForActiveWindow();
    } else if (event.atom == atoms_.supportingWmCheck) {
      askForManager();
    } else if (event.atom == atoms_.currentDesktop) {
      askForDesktop();
    }
  } else if (event.atom == XCB_ATOM_WM_CLASS || event.atom == XCB_ATOM_WM_HINTS ||
             event.atom == atoms_.desktopOfWindow || event.atom == atoms_.processId ||
             event.atom == atoms_.gtkApplicationId || event.atom == atoms_.windowType) {
    changed_.insert(event.window);
  }
}

void X11Session::askForList() {
  properties_.ask(connection_->root(), atoms_.clientList,
                  [this](const X11Property& list) { listed(list.numbers()); });
}

void X11Session::listed(const std::vector<std::uint32_t>& windows) {
  const std::set<xcb_window_t> now(windows.begin(), windows.end());
  for (auto& [window, state] : known_) {
    if (now.contains(window)) {
      state.unlisted.reset();
    } else if (!state.unlisted) {
      state.unlisted = Clock::now();
      if (!std::exchange(sweeping_, true)) {
        spawn(service_, sweep(weak_from_this()), "closed windows");
      }
    }
  }
  const bool first = known_.empty();
  for (const auto window : windows) {
    if (!known_.contains(window) && window != XCB_WINDOW_NONE) {
      follow(window);
    }
  }
  if (first && !known_.empty()) {
    askForStacking();
  }
}

// Until they are used, the windows that lie on top count as used last.
void X11Session::askForStacking() {
  properties_.ask(connection_->root(), atoms_.clientListStacking,
                  [this](const X11Property& bottomToTop) {
                    for (const auto window : bottomToTop.numbers()) {
                      windows_->used(window);
                    }
                    windows_->used(active_);
                  });
}

void X11Session::askForActiveWindow() {
  properties_.ask(connection_->root(), atoms_.activeWindow, [this](const X11Property& active) {
    active_ = active.number();
    windows_->used(active_);
  });
}

// A manager that was killed leaves the property behind; its window goes with it.
void X11Session::askForManager() {
  properties_.ask(connection_->root(), atoms_.supportingWmCheck,
                  [this](const X11Property& manager) {
                    const auto window = manager.number();
                    select(connection_->get(), window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
                    properties_.ask(window, atoms_.supportingWmCheck,
                                    [this](const X11Property& same) { manager_ = same.number(); });
                  });
}

void X11Session::askForDesktop() {
  properties_.ask(connection_->root(), atoms_.currentDesktop,
                  [this](const X11Property& desktop) { desktop_ = desktop.number(); });
}

void X11Session::follow(xcb_window_t window) {
  known_[window];
  // First of all, so that no change is missed.
  select(connection_->get(), window,
         XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  askForIdentity(window);
}

void X11Session::askForIdentity(xcb_window_t window) {
  struct Answers {
    WindowIdentity identity;
    std::string host;
  };
  const auto answers = std::make_shared<Answers>();
  properties_.ask(window, XCB_ATOM_WM_CLASS, [answers](const X11Property& classes) {
    const auto names = classes.texts();
    if (names.size() >= 2) {
      answers->identity.instanceName = names[0];
      answers->identity.className = names[1];
    }
  });
  properties_.ask(window, XCB_ATOM_WM_HINTS, [this, window](const X11Property& hints) {
    constexpr std::uint32_t inputHint = 1;
    const auto numbers = hints.numbers();
    const auto known = known_.find(window);
    if (known != known_.end()) {
      known->second.takesFocus =
          numbers.size() < 2 || (numbers[0] & inputHint) == 0 || numbers[1] != 0;
    }
  });
  properties_.ask(window, atoms_.desktopOfWindow, [this, window](const X11Property& desktop) {
    const auto known = known_.find(window);
    if (known != known_.end()) {
      known->second.desktop = desktop.numbers().empty() ? everyDesktop : desktop.number();
    }
  });
  properties_.ask(window, atoms_.gtkApplicationId, [answers](const X11Property& id) {
    answers->identity.applicationId = id.text();
  });
  properties_.ask(window, XCB_ATOM_WM_CLIENT_MACHINE,
                  [answers](const X11Property& host) { answers->host = host.text(); });
  properties_.ask(window, atoms_.processId, [this, answers](const X11Property& process) {
    if (answers->host.empty() || answers->host == hostName_) {
      answers->identity.process = static_cast<pid_t>(process.number());
    }
  });
  properties_.ask(window, atoms_.windowType, [this, window, answers](const X11Property& type) {
    const auto first = type.number();
    const bool ofDesktop = first != XCB_ATOM_NONE &&
                           (first == atoms_.windowTypeDesktop || first == atoms_.windowTypeDock);
    if (!known_.contains(window)) {
      return;
    }
    if (ofDesktop) {
      windows_->remove(window);
    } else {
      windows_->put(window, answers->identity);
      if (window == active_) {
        windows_->used(window);
      }
    }
  });
}

void X11Session::forget(xcb_window_t window) {
  if (window == manager_) {
    manager_ = XCB_WINDOW_NONE;
  }
  known_.erase(window);
  changed_.erase(window);
  windows_->remove(window);
}

Awaitable<> X11Session::sweep(std::weak_ptr<X11Session> weakSelf) {
  for (bool more = true; more;) {
    co_await sleepFor(timeoutWhileHidden);
    const auto self = weakSelf.lock();
    more = self && !self->ended_ && self->sweepOnce();
  }
}

bool X11Session::sweepOnce() {
  std::vector<xcb_window_t> gone;
  sweeping_ = false;
  for (const auto& [window, state] : known_) {
    if (state.unlisted) {
      const auto missing = Clock::now() - *state.unlisted;
      if (missing >= (state.mapped ? Clock::duration(timeoutWhileShown) : timeoutWhileHidden)) {
        gone.push_back(window);
      } else {
        sweeping_ = true;
      }
    }
  }
  for (const auto window : gone) {
    forget(window);
  }
  return sweeping_;
}

void X11Session::tellWindowManager(xcb_window_t window, xcb_atom_t message,
                                   std::array<std::uint32_t, 5> data) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = message;
  std::copy(data.begin(), data.end(), std::begin(event.data.data32));
  xcb_send_event(connection_->get(), 0, connection_->root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
}

Awaitable<std::optional<xcb_timestamp_t>> X11Session::serverTime(std::shared_ptr<X11Session> self) {
  // Nothing more is sent to a server that does not read.
  if (self->ended_ || self->hangs_) {
    co_return std::nullopt;
  }
  const auto deadline = Clock::now() + tapTimeout;
  const unsigned own = ++self->timesAsked_;
  auto& connection = *self->connection_;
  xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, connection.window(),
                      self->atoms_.time, XCB_ATOM_INTEGER, 32, 0, nullptr);
  self->receive();
  while (self->timesTold_ < own) {
    if (self->ended_ || Clock::now() >= deadline) {
      self->hangs_ = true;
      co_return std::nullopt;
    }
    co_await self->signal_.next(deadline);
  }
  co_return self->time_;
}

Awaitable<bool> X11Session::activate(std::shared_ptr<X11Session> self,
                                     std::vector<xcb_window_t> windows) {
  constexpr std::uint32_t asPager = 2;
  const auto deadline = Clock::now() + tapTimeout;
  auto asking = serverTime(self);
  const auto time = co_await std::move(asking);
  if (!time || windows.empty() || self->manager_ == XCB_WINDOW_NONE) {
    co_return false;
  }
  const auto known = self->known_.find(windows.front());
  const Window state = known == self->known_.end() ? Window() : known->second;
  for (auto other = windows.rbegin(); *other != windows.front(); ++other) {
    self->tellWindowManager(*other, self->atoms_.restackWindow,
                            {asPager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE, 0, 0});
  }
  // Some managers give the focus only to windows of the desktop that is shown.
  if (state.desktop != everyDesktop && state.desktop != self->desktop_) {
    self->tellWindowManager(self->connection_->root(), self->atoms_.currentDesktop,
                            {state.desktop, *time, 0, 0, 0});
  }
  self->tellWindowManager(windows.front(), self->atoms_.activeWindow,
                          {asPager, *time, XCB_WINDOW_NONE, 0, 0});
  self->receive();
  if (!state.takesFocus) {
    co_return true;
  }
  // A dialog of the application may take the focus instead.
  while (std::find(windows.begin(), windows.end(), self->active_) == windows.end()) {
    if (self->ended_ || Clock::now() >= deadline) {
      co_return false;
    }
    co_await self->signal_.next(deadline);
  }
  co_return true;
}

}  // namespace glintboard
