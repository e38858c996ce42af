// SPDX-License-Identifier: MIT
// A session with an X server.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "platform/linux/windows/display_session.h"
#include "platform/linux/windows/x11_connection.h"
#include "platform/linux/windows/x11_properties.h"

namespace glintboard {

// Follows the windows that the window manager lists (EWMH).
class X11Session : public DisplaySession, public std::enable_shared_from_this<X11Session> {
 public:
  // Connects to `display`, named as in DISPLAY; only displays of this computer are supported. Null
  // when no server answers within two seconds. Blocking calls are made on `workers`.
  static Awaitable<std::shared_ptr<DisplaySession>> open(asio::any_io_executor service,
                                                         asio::any_io_executor workers,
                                                         std::string display,
                                                         std::shared_ptr<OpenWindows> windows);
  X11Session(const asio::any_io_executor& service, std::unique_ptr<X11Connection> connection,
             std::shared_ptr<OpenWindows> windows);

  Awaitable<bool> activate(std::vector<OpenWindows::Handle> windows) override;
  Awaitable<LaunchToken> launchToken() override;

 private:
  static constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
  struct Window {
    // When the window manager removed it from its list.
    std::optional<Clock::time_point> unlisted;
    bool mapped = true;
    // Whether the window manager may focus it. Others (xclock) only come to the front.
    bool takesFocus = true;
    std::uint32_t desktop = everyDesktop;
  };

  int socket() const override;
  void begin() override;
  bool receive() override;
  // The answer has the server's time.
  void sendPing() override;
  // The server's time, or none when it does not answer before the deadline.
  Awaitable<std::optional<xcb_timestamp_t>> serverTime(Clock::time_point deadline);
  // Handles one event of the server. Ignores events of unknown windows.
  void handle(const xcb_generic_event_t& event);
  void propertyChanged(const xcb_property_notify_event_t& event);
  // These request a property of the root window; a later `receive` handles the reply.
  void askForList();
  void askForStacking();
  void askForActiveWindow();
  void askForManager();
  void askForDesktop();
  // Handles the window manager's list.
  void listed(const std::vector<std::uint32_t>& windows);
  // Starts to follow a window that is new in the list.
  void follow(xcb_window_t window);
  // Requests the properties of a window. Reports the window when all replies have arrived, unless
  // it is a desktop or a panel.
  void askForIdentity(xcb_window_t window);
  // Reports that a window was closed.
  void forget(xcb_window_t window);
  // Forgets windows that stay unlisted, until no unlisted window is left.
  static Awaitable<> sweep(std::weak_ptr<X11Session> weakSelf);
  // One pass. Whether unlisted windows are left.
  bool sweepOnce();
  // Sends a client message about `window` to the window manager.
  void tellWindowManager(xcb_window_t window, xcb_atom_t message,
                         std::array<std::uint32_t, 5> data);

  const std::unique_ptr<X11Connection> connection_;
  const X11Atoms& atoms_;
  const std::string hostName_;
  X11PropertyRequests properties_;
  std::map<xcb_window_t, Window> known_;
  // Windows whose identity must be read again.
  std::set<xcb_window_t> changed_;
  bool sweeping_ = false;
  // The window manager's check window, which exists as long as the manager runs.
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  xcb_window_t active_ = XCB_WINDOW_NONE;
  std::uint32_t desktop_ = 0;
  xcb_timestamp_t time_ = XCB_CURRENT_TIME;
  unsigned launches_ = 0;
};

}  // namespace glintboard
