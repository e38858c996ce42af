// SPDX-License-Identifier: MIT
// The windows of a Wayland session.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/windows/display_windows.h"

namespace glintboard {

class WaylandSession;

// Where the compositor has no list of windows, no application has one here.
class WaylandWindows : public DisplayWindows {
 public:
  // `socket` is the path of the compositor's socket. `withoutList` is called on the service loop,
  // once, when there is no compositor there or one without a list.
  WaylandWindows(Executors& executors, std::shared_ptr<OpenWindows> windows, std::string socket,
                 std::function<void()> withoutList);
  ~WaylandWindows() override;

  Awaitable<bool> activate(std::string bundleId) override;
  Awaitable<LaunchToken> launchToken() override;

 private:
  Awaitable<bool> follow() override;
  void disconnect() override;
  void tellWithoutList();

  const std::string socket_;

  // Touched on the service loop alone.
  std::function<void()> withoutList_;
  std::shared_ptr<WaylandSession> session_;
};

}  // namespace glintboard
