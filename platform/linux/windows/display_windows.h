// SPDX-License-Identifier: MIT
// The open windows of a display whose connection may end and come back.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "platform/linux/windows/display_session.h"

namespace glintboard {

// Keeps a session with one display. After a failed or ended connection it tries again: after one
// second, then two, … and up to thirty.
class DisplayWindows : public std::enable_shared_from_this<DisplayWindows> {
 public:
  // Opens a session with the display; null when that fails. Never throws. Service loop.
  using Connect = std::function<Awaitable<std::shared_ptr<DisplaySession>>()>;

  DisplayWindows(Executors& executors, std::shared_ptr<OpenWindows> windows, Connect connect);

  // Begins to connect; only the first call has an effect. The service loop keeps this object alive
  // until `stop`. Any thread.
  void start();
  // Ends the connection without waiting for it. Any thread.
  void stop();

  // The identifiers of the applications that have an open window, on any workspace of the desktop.
  // Does not block. Any thread.
  std::shared_ptr<const std::set<std::string>> applications() { return windows_->applications(); }
  // As `DisplaySession::activate` for the windows of an application, the one used last first.
  // Service loop, which it does not leave.
  Awaitable<bool> activate(std::string bundleId);
  // As `DisplaySession::launchToken`; empty without a connection. Service loop.
  Awaitable<LaunchToken> launchToken();

 private:
  static Awaitable<> run(std::shared_ptr<DisplayWindows> self);

  const asio::any_io_executor service_;
  const std::shared_ptr<OpenWindows> windows_;
  const Connect connect_;
  std::atomic<bool> started_ = false;
  // Service loop only.
  std::shared_ptr<DisplaySession> session_;
  asio::steady_timer nextTry_;
  bool stopped_ = false;
};

}  // namespace glintboard
