// SPDX-License-Identifier: MIT
// The windows of an X11 session.
#pragma once

#include <memory>
#include <string>

#include "platform/linux/windows/display_windows.h"

namespace glintboard {

class X11Session;

class X11Windows : public DisplayWindows {
 public:
  // `display` is named as in DISPLAY; only those of this computer are connected to.
  X11Windows(Executors& executors, std::shared_ptr<OpenWindows> windows, std::string display);
  ~X11Windows() override;

  Awaitable<bool> activate(std::string bundleId) override;
  Awaitable<LaunchToken> launchToken() override;

 private:
  Awaitable<bool> follow() override;
  void disconnect() override;

  const asio::any_io_executor workers_;
  const std::string display_;

  // Touched on the service loop alone.
  std::shared_ptr<X11Session> session_;
  unsigned launches_ = 0;
};

}  // namespace glintboard
