// The windows of an X11 session.
#pragma once

#include <memory>
#include <string>

#include "platform/linux/open_windows.h"
#include "platform/linux/window_system.h"

namespace glintboard {

class X11Session;

// Connects to an X server, and again after one second, two, … and up to thirty when there is none
// or it has gone.
class X11Windows : public WindowSystem, public std::enable_shared_from_this<X11Windows> {
 public:
  // `display` is named as in DISPLAY.
  X11Windows(Executors& executors, std::shared_ptr<OpenWindows> windows, std::string display);
  ~X11Windows() override;

  // Begins to connect. Any thread.
  void start();

  bool has(const std::string& bundleId) override { return windows_->has(bundleId); }
  Awaitable<bool> activate(std::string bundleId) override;
  Awaitable<LaunchToken> launchToken() override;
  void stop() override;

 private:
  static Awaitable<> run(std::shared_ptr<X11Windows> self);

  const asio::any_io_executor service_;
  const asio::any_io_executor workers_;
  const std::shared_ptr<OpenWindows> windows_;
  const std::string display_;

  // Touched on the service loop alone.
  std::shared_ptr<X11Session> session_;
  asio::steady_timer nextTry_;
  bool stopped_ = false;
  unsigned launches_ = 0;
};

}  // namespace glintboard
