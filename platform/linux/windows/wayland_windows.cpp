// SPDX-License-Identifier: MIT
#include "platform/linux/windows/wayland_windows.h"

#include <utility>

#include "platform/linux/windows/wayland_session.h"

namespace glintboard {

WaylandWindows::WaylandWindows(Executors& executors, std::shared_ptr<OpenWindows> windows,
                               std::string socket, std::function<void()> withoutList)
    : DisplayWindows(executors, std::move(windows)),
      socket_(std::move(socket)),
      withoutList_(std::move(withoutList)) {}

WaylandWindows::~WaylandWindows() = default;

Awaitable<bool> WaylandWindows::follow() {
  session_ =
      WaylandSession::connect(service(), socket_, sharedWindows(), [this] { tellWithoutList(); });
  if (!session_) {
    tellWithoutList();
    co_return false;
  }
  auto running = WaylandSession::run(session_);
  co_await std::move(running);
  session_.reset();
  co_return true;
}

void WaylandWindows::disconnect() {
  if (session_) {
    session_->stop();
  }
}

void WaylandWindows::tellWithoutList() {
  if (const auto tell = std::exchange(withoutList_, nullptr)) {
    tell();
  }
}

Awaitable<bool> WaylandWindows::activate(std::string bundleId) {
  const auto session = session_;
  const auto handles = windows().of(bundleId);
  if (!session || handles.empty()) {
    co_return false;
  }
  auto activating = WaylandSession::activate(session, handles.front());
  co_return co_await std::move(activating);
}

Awaitable<LaunchToken> WaylandWindows::launchToken() {
  LaunchToken token;
  if (const auto session = session_) {
    auto asking = WaylandSession::activationToken(session);
    token.activationToken = co_await std::move(asking);
    // Programs that know X11's way of it alone look here.
    token.startupId = token.activationToken;
  }
  co_return token;
}

}  // namespace glintboard
