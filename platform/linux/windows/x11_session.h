// SPDX-License-Identifier: MIT
// What is told and asked over one connection to an X server.
#pragma once

#include <boost/asio/posix/stream_descriptor.hpp>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "platform/linux/base/change_signal.h"
#include "platform/linux/windows/open_windows.h"
#include "platform/linux/windows/x11_connection.h"
#include "platform/linux/windows/x11_properties.h"

namespace glintboard {

// Follows the windows that the window manager lists (EWMH), by events alone. Never waits for the
// server inside a turn. For the service loop, to be kept by a shared pointer.
class X11Session : public std::enable_shared_from_this<X11Session> {
 public:
  X11Session(asio::any_io_executor service, std::unique_ptr<X11Connection> connection,
             std::shared_ptr<OpenWindows> windows);

  // Until the connection ends.
  static Awaitable<> run(std::shared_ptr<X11Session> self);
  void stop();

  // Raises the windows and gives the first of them the focus. True when the window manager has.
  static Awaitable<bool> activate(std::shared_ptr<X11Session> self,
                                  std::vector<xcb_window_t> windows);
  // The server's time, or none when it does not answer.
  static Awaitable<std::optional<xcb_timestamp_t>> serverTime(std::shared_ptr<X11Session> self);

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
  struct Window {
    // When the window manager ceased to list it.
    std::optional<Clock::time_point> unlisted;
    bool mapped = true;
    // Whether its manager may give it the focus. Others (xclock) only come to the front.
    bool takesFocus = true;
    std::uint32_t desktop = everyDesktop;
  };

  // Sends what is waiting and handles all that has arrived. False when the connection has ended.
  bool receive();
  void handle(const xcb_generic_event_t& event);
  void propertyChanged(const xcb_property_notify_event_t& event);
  void askForList();
  void listed(const std::vector<std::uint32_t>& windows);
  void askForStacking();
  void askForActiveWindow();
  void askForManager();
  void askForDesktop();
  void follow(xcb_window_t window);
  void askForIdentity(xcb_window_t window);
  void forget(xcb_window_t window);
  // Forgets the windows that have left the list for good.
  static Awaitable<> sweep(std::weak_ptr<X11Session> weakSelf);
  bool sweepOnce();
  void tellWindowManager(xcb_window_t window, xcb_atom_t message,
                         std::array<std::uint32_t, 5> data);

  const asio::any_io_executor service_;
  const std::unique_ptr<X11Connection> connection_;
  const std::shared_ptr<OpenWindows> windows_;
  const X11Atoms& atoms_;
  const std::string hostName_;
  X11PropertyRequests properties_;
  // A descriptor of its own for the connection's socket.
  asio::posix::stream_descriptor readable_;

  std::map<xcb_window_t, Window> known_;
  // Windows that have said something new of themselves.
  std::set<xcb_window_t> changed_;
  bool sweeping_ = false;
  bool ended_ = false;

  // The window by which the window manager shows that it is there.
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  xcb_window_t active_ = XCB_WINDOW_NONE;
  std::uint32_t desktop_ = 0;
  ChangeSignal signal_;
  // How often the server was asked for its time, and has answered.
  unsigned timesAsked_ = 0;
  unsigned timesTold_ = 0;
  xcb_timestamp_t time_ = XCB_CURRENT_TIME;
  // It did not answer in time, and has not since.
  bool hangs_ = false;
};

}  // namespace glintboard
