// SPDX-License-Identifier: MIT
// The window system of the user's session, as far as applications are concerned.
#pragma once

#include <chrono>
#include <memory>
#include <set>
#include <string>

#include "platform/asio.h"
#include "platform/linux/applications/launch_token.h"

namespace glintboard {

// How long a tap may take when the display or its window manager hangs.
inline constexpr std::chrono::seconds tapTimeout{1};

// Follows the open windows of one display by its events. The display may go away and come back,
// or hang, at any time: nothing here waits for it longer than `tapTimeout`.
class WindowSystem {
 public:
  WindowSystem() = default;
  WindowSystem(const WindowSystem&) = delete;
  WindowSystem& operator=(const WindowSystem&) = delete;
  virtual ~WindowSystem() = default;

  // The identifiers of the applications that have an open window, wherever on the desktop. At once,
  // on any thread.
  virtual std::shared_ptr<const std::set<std::string>> applications() = 0;
  // Brings an application's windows to the front and gives the one that was used last the focus.
  // True when the desktop has done so. Never throws. To be awaited on the service loop, which it
  // does not leave.
  virtual Awaitable<bool> activate(std::string bundleId) = 0;
  // A token for a program about to be launched; empty when there is none to be had. Never throws.
  // To be awaited on the service loop.
  virtual Awaitable<LaunchToken> launchToken() = 0;
  // Ends the connection, without waiting for it. Any thread.
  virtual void stop() = 0;
};

}  // namespace glintboard
