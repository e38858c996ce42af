// SPDX-License-Identifier: MIT
#include "platform/linux/windows/x11_session.h"

#include <unistd.h>

#include <algorithm>

#include "platform/linux/base/c_pointer.h"
#include "platform/linux/base/host_name.h"
#include "platform/spawn.h"

namespace glintboard {

namespace {

using namespace std::chrono_literals;

// How long a window may be missing from the list before it counts as closed. While the window
// manager is replaced, windows are shown and unlisted.
constexpr auto timeoutWhileShown = 2s;
constexpr auto timeoutWhileHidden = 50ms;

using Event = CPointer<xcb_generic_event_t>;

void select(xcb_connection_t* connection, xcb_window_t window, std::uint32_t events) {
  xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &events);
}

}  // namespace

Awaitable<std::shared_ptr<DisplaySession>> X11Session::open(asio::any_io_executor service,
                                                            asio::any_io_executor workers,
                                                            std::string display,
                                                            std::shared_ptr<OpenWindows> windows) {
  auto connection = co_await X11Connection::open(workers, display);
  if (!connection) {
    co_return nullptr;
  }
  co_return std::make_shared<X11Session>(service, std::move(connection), std::move(windows));
}

X11Session::X11Session(const asio::any_io_executor& service,
                       std::unique_ptr<X11Connection> connection,
                       std::shared_ptr<OpenWindows> windows)
    : DisplaySession(service, std::move(windows)),
      connection_(std::move(connection)),
      atoms_(connection_->atoms()),
      hostName_(kernelHostName()),
      properties_(connection_->get()) {}

int X11Session::socket() const {
  return xcb_get_file_descriptor(connection_->get());
}

void X11Session::begin() {
  select(connection_->get(), connection_->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
  askForManager();
  askForList();
  askForActiveWindow();
  askForDesktop();
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
  // Each call, also a flush, may read more from the socket than it returns. So nothing is left only
  // when a round finds nothing, and its last call does not read.
  while (std::exchange(any, false) && !ended()) {
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
  if (xcb_connection_has_error(connection) != 0) {
    setEnded();
  }
  notify();
  return !ended();
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
    time_ = event.time;
    pingAnswered();
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
        spawn(service(), sweep(weak_from_this()), "closed windows");
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

// Before the first use, the order of the windows stands for the order of their use: the top one was
// used last.
void X11Session::askForStacking() {
  properties_.ask(connection_->root(), atoms_.clientListStacking,
                  [this](const X11Property& bottomToTop) {
                    for (const auto window : bottomToTop.numbers()) {
                      windows().used(window);
                    }
                    windows().used(active_);
                  });
}

void X11Session::askForActiveWindow() {
  properties_.ask(connection_->root(), atoms_.activeWindow, [this](const X11Property& active) {
    active_ = active.number();
    windows().used(active_);
  });
}

// A killed window manager leaves the property on the root window; its check window is destroyed.
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
  // Before reading the properties, so that no change is missed.
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
      windows().remove(window);
    } else {
      windows().put(window, answers->identity);
      if (window == active_) {
        windows().used(window);
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
  windows().remove(window);
}

Awaitable<> X11Session::sweep(std::weak_ptr<X11Session> weakSelf) {
  for (bool more = true; more;) {
    co_await sleepFor(timeoutWhileHidden);
    const auto self = weakSelf.lock();
    more = self && !self->ended() && self->sweepOnce();
  }
}

bool X11Session::sweepOnce() {
  std::vector<xcb_window_t> closed;
  sweeping_ = false;
  for (const auto& [window, state] : known_) {
    if (state.unlisted) {
      const auto missing = Clock::now() - *state.unlisted;
      if (missing >= (state.mapped ? Clock::duration(timeoutWhileShown) : timeoutWhileHidden)) {
        closed.push_back(window);
      } else {
        sweeping_ = true;
      }
    }
  }
  for (const auto window : closed) {
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

void X11Session::sendPing() {
  xcb_change_property(connection_->get(), XCB_PROP_MODE_REPLACE, connection_->window(), atoms_.time,
                      XCB_ATOM_INTEGER, 32, 0, nullptr);
  receive();
}

Awaitable<std::optional<xcb_timestamp_t>> X11Session::serverTime(Clock::time_point deadline) {
  const bool answers = co_await isAnswering(deadline);
  co_return answers ? std::optional(time_) : std::nullopt;
}

Awaitable<LaunchToken> X11Session::launchToken() {
  LaunchToken token;
  const auto time = co_await serverTime(Clock::now() + tapTimeout);
  if (time) {
    token.startupId = "glintboard-" + std::to_string(::getpid()) + "-" +
                      std::to_string(++launches_) + "_TIME" + std::to_string(*time);
  }
  co_return token;
}

Awaitable<bool> X11Session::activate(std::vector<OpenWindows::Handle> handles) {
  constexpr std::uint32_t asPager = 2;
  const std::vector<xcb_window_t> windows(handles.begin(), handles.end());
  const auto deadline = Clock::now() + tapTimeout;
  const auto time = co_await serverTime(deadline);
  if (!time || manager_ == XCB_WINDOW_NONE) {
    co_return false;
  }
  const auto known = known_.find(windows.front());
  const Window state = known == known_.end() ? Window() : known->second;
  for (auto other = windows.rbegin(); *other != windows.front(); ++other) {
    tellWindowManager(*other, atoms_.restackWindow,
                      {asPager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE, 0, 0});
  }
  // Some window managers focus only windows on the current desktop.
  if (state.desktop != everyDesktop && state.desktop != desktop_) {
    tellWindowManager(connection_->root(), atoms_.currentDesktop, {state.desktop, *time, 0, 0, 0});
  }
  tellWindowManager(windows.front(), atoms_.activeWindow, {asPager, *time, XCB_WINDOW_NONE, 0, 0});
  receive();
  if (!state.takesFocus) {
    co_return true;
  }
  // A dialog of the application may take the focus instead.
  const auto isFocused = [&] { return std::ranges::count(windows, active_) != 0; };
  co_return co_await waitUntil(isFocused, deadline);
}

}  // namespace glintboard
