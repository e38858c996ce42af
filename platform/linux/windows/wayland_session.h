// SPDX-License-Identifier: MIT
// A session with a Wayland compositor.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/linux/windows/display_session.h"
#include "platform/linux/windows/wayland_proxies.h"

namespace glintboard {

// Follows the windows that the compositor lists (wlr-foreign-toplevel-management).
class WaylandSession : public DisplaySession {
 public:
  // Connects to the compositor's socket, which must be an absolute path; null when that fails.
  // Calls `withoutList` when there is no compositor, or later when the compositor lists no windows.
  static Awaitable<std::shared_ptr<DisplaySession>> open(asio::any_io_executor service,
                                                         std::string socket,
                                                         std::shared_ptr<OpenWindows> windows,
                                                         std::function<void()> withoutList);
  WaylandSession(const asio::any_io_executor& service, WaylandPointer<wl_display> display,
                 std::shared_ptr<OpenWindows> windows, std::function<void()> withoutList);
  ~WaylandSession() override;

  Awaitable<bool> activate(std::vector<OpenWindows::Handle> windows) override;
  Awaitable<LaunchToken> launchToken() override;

 private:
  // One window.
  struct Toplevel {
    WaylandSession* session = nullptr;
    OpenWindows::Handle handle = 0;
    WaylandPointer<zwlr_foreign_toplevel_handle_v1> proxy;
    std::string applicationId;
    bool active = false;
  };
  // The functions that libwayland calls. Their `data` is the session, the toplevel or the text of a
  // token.
  struct Listeners;

  int socket() const override;
  void begin() override;
  bool receive() override;
  void sendPing() override;
  // Sends buffered requests without blocking. Ends the session if the connection has failed.
  void flush();
  // Binds a global of the compositor if it is one of those in use.
  void bind(std::uint32_t name, const std::string& interface);
  // Starts to follow a window. Takes the ownership of `proxy`.
  void add(zwlr_foreign_toplevel_handle_v1* proxy);
  // Reports a window whose description is complete.
  void described(const Toplevel& toplevel);

  WaylandPointer<wl_display> display_;
  // Empty once it was called or the list is known to exist.
  std::function<void()> withoutList_;
  WaylandPointer<wl_registry> registry_;
  WaylandPointer<wl_seat> seat_;
  WaylandPointer<zwlr_foreign_toplevel_manager_v1> manager_;
  WaylandPointer<xdg_activation_v1> activation_;
  std::map<OpenWindows::Handle, std::unique_ptr<Toplevel>> toplevels_;
  OpenWindows::Handle lastHandle_ = 0;
  // The unanswered ones, the oldest first.
  std::deque<WaylandPointer<wl_callback>> sentPings_;
};

}  // namespace glintboard
