// SPDX-License-Identifier: MIT
// What is told and asked over one connection to a Wayland compositor.
#pragma once

#include <boost/asio/posix/stream_descriptor.hpp>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/linux/base/change_signal.h"
#include "platform/linux/windows/open_windows.h"
#include "platform/linux/windows/wayland_proxies.h"

namespace glintboard {

// Follows the windows that the compositor lists (wlr-foreign-toplevel-management), by events alone.
// Never waits for the compositor inside a turn. For the service loop, to be kept by a shared
// pointer.
class WaylandSession : public std::enable_shared_from_this<WaylandSession> {
 public:
  // Connects to the compositor's socket at once, or returns null. `withoutList` is called when it
  // turns out that this compositor lists no windows.
  static std::shared_ptr<WaylandSession> connect(const asio::any_io_executor& service,
                                                 const std::string& socket,
                                                 std::shared_ptr<OpenWindows> windows,
                                                 std::function<void()> withoutList);
  ~WaylandSession();
  WaylandSession(const WaylandSession&) = delete;
  WaylandSession& operator=(const WaylandSession&) = delete;

  // Until the connection ends.
  static Awaitable<> run(std::shared_ptr<WaylandSession> self);
  void stop();

  // Restores a window and gives it the focus. True when the compositor has.
  static Awaitable<bool> activate(std::shared_ptr<WaylandSession> self, OpenWindows::Handle window);
  // An activation token, or empty when the compositor gives none.
  static Awaitable<std::string> activationToken(std::shared_ptr<WaylandSession> self);

 private:
  using Clock = std::chrono::steady_clock;
  struct Toplevel {
    WaylandSession* session = nullptr;
    OpenWindows::Handle handle = 0;
    WaylandPointer<zwlr_foreign_toplevel_handle_v1> proxy;
    std::string applicationId;
    bool active = false;
  };
  // Functions that libwayland calls; they name what they belong to by their `data`.
  struct Listeners;

  WaylandSession(const asio::any_io_executor& service, WaylandPointer<wl_display> display,
                 std::shared_ptr<OpenWindows> windows, std::function<void()> withoutList);
  // Handles all that has arrived and sends what is waiting. False when the connection has ended.
  bool receive();
  void flush();
  void bind(std::uint32_t name, const std::string& interface);
  void add(zwlr_foreign_toplevel_handle_v1* proxy);
  void described(const Toplevel& toplevel);
  // Asks the compositor whether it is there; returns the number of the question.
  unsigned ask();
  // Resumes when the compositor has handled what was sent. Whether it has, in time.
  static Awaitable<bool> handled(std::shared_ptr<WaylandSession> self, Clock::time_point deadline);

  WaylandPointer<wl_display> display_;
  const std::shared_ptr<OpenWindows> windows_;
  std::function<void()> withoutList_;
  // A descriptor of its own for the connection's socket.
  asio::posix::stream_descriptor readable_;
  WaylandPointer<wl_registry> registry_;
  WaylandPointer<wl_seat> seat_;
  WaylandPointer<zwlr_foreign_toplevel_manager_v1> manager_;
  WaylandPointer<xdg_activation_v1> activation_;
  std::map<OpenWindows::Handle, std::unique_ptr<Toplevel>> toplevels_;
  OpenWindows::Handle lastHandle_ = 0;

  ChangeSignal signal_;
  bool ended_ = false;
  // How often the compositor was asked whether it is there, and has answered.
  unsigned asked_ = 0;
  unsigned answered_ = 0;
  std::map<unsigned, WaylandPointer<wl_callback>> questions_;
  // It did not answer in time, and has not since.
  bool hangs_ = false;
};

}  // namespace glintboard
