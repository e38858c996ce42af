// SPDX-License-Identifier: MIT
// A window system over a connection that may come and go.
#pragma once

#include <memory>
#include <string>

#include "platform/linux/windows/open_windows.h"
#include "platform/linux/windows/window_system.h"

namespace glintboard {

// Connects to a display, and again after one second, two, … and up to thirty when there is none
// or it has gone.
class DisplayWindows : public WindowSystem, public std::enable_shared_from_this<DisplayWindows> {
 public:
  // Begins to connect. Any thread.
  void start();
  void stop() override;
  std::shared_ptr<const std::set<std::string>> applications() override {
    return windows_->applications();
  }

 protected:
  DisplayWindows(Executors& executors, std::shared_ptr<OpenWindows> windows);

  // These run on the service loop.

  // Connects and follows the windows until the connection ends. Whether there was one.
  virtual Awaitable<bool> follow() = 0;
  // Ends the connection, if there is one.
  virtual void disconnect() = 0;

  bool stopped() const { return stopped_; }
  OpenWindows& windows() { return *windows_; }
  const std::shared_ptr<OpenWindows>& sharedWindows() const { return windows_; }
  const asio::any_io_executor& service() const { return service_; }

 private:
  static Awaitable<> run(std::shared_ptr<DisplayWindows> self);

  const asio::any_io_executor service_;
  const std::shared_ptr<OpenWindows> windows_;
  asio::steady_timer nextTry_;
  bool stopped_ = false;
};

}  // namespace glintboard
