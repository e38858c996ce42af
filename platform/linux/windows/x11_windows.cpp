// SPDX-License-Identifier: MIT
#include "platform/linux/windows/x11_windows.h"

#include <unistd.h>

#include "platform/linux/windows/x11_session.h"

namespace glintboard {

X11Windows::X11Windows(Executors& executors, std::shared_ptr<OpenWindows> windows,
                       std::string display)
    : DisplayWindows(executors, std::move(windows)),
      workers_(executors.workers()),
      display_(std::move(display)) {}

X11Windows::~X11Windows() = default;

Awaitable<bool> X11Windows::follow() {
  auto opening = X11Connection::open(workers_, display_);
  auto connection = co_await std::move(opening);
  if (!connection || stopped()) {
    co_return false;
  }
  session_ = std::make_shared<X11Session>(service(), std::move(connection), sharedWindows());
  auto running = X11Session::run(session_);
  co_await std::move(running);
  session_.reset();
  co_return true;
}

void X11Windows::disconnect() {
  if (session_) {
    session_->stop();
  }
}

Awaitable<bool> X11Windows::activate(std::string bundleId) {
  const auto session = session_;
  const auto handles = windows().of(bundleId);
  if (!session || handles.empty()) {
    co_return false;
  }
  const std::vector<xcb_window_t> windows(handles.begin(), handles.end());
  auto activating = X11Session::activate(session, windows);
  co_return co_await std::move(activating);
}

Awaitable<LaunchToken> X11Windows::launchToken() {
  LaunchToken token;
  if (const auto session = session_) {
    auto asking = X11Session::serverTime(session);
    const auto time = co_await std::move(asking);
    if (time) {
      token.startupId = "glintboard-" + std::to_string(::getpid()) + "-" +
                        std::to_string(++launches_) + "_TIME" + std::to_string(*time);
    }
  }
  co_return token;
}

}  // namespace glintboard
