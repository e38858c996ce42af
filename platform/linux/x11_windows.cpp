#include "platform/linux/x11_windows.h"

#include <unistd.h>

#include <algorithm>

#include "platform/linux/x11_session.h"
#include "platform/spawn.h"

namespace glintboard {

namespace {

constexpr std::chrono::seconds longestPause{30};

}  // namespace

X11Windows::X11Windows(Executors& executors, std::shared_ptr<OpenWindows> windows,
                       std::string display)
    : service_(executors.service()),
      workers_(executors.workers()),
      windows_(std::move(windows)),
      display_(std::move(display)),
      nextTry_(service_) {}

X11Windows::~X11Windows() = default;

void X11Windows::start() {
  spawn(service_, run(shared_from_this()), "X11 windows");
}

void X11Windows::stop() {
  asio::post(service_, [self = shared_from_this()] {
    self->stopped_ = true;
    self->nextTry_.cancel();
    if (self->session_) {
      self->session_->stop();
    }
  });
}

Awaitable<> X11Windows::run(std::shared_ptr<X11Windows> self) {
  std::chrono::seconds pause{1};
  while (!self->stopped_) {
    auto opening = X11Connection::open(self->workers_, self->display_);
    auto connection = co_await std::move(opening);
    if (connection && !self->stopped_) {
      self->session_ =
          std::make_shared<X11Session>(self->service_, std::move(connection), self->windows_);
      auto running = X11Session::run(self->session_);
      co_await std::move(running);
      self->session_.reset();
      pause = std::chrono::seconds(1);
    }
    if (self->stopped_) {
      co_return;
    }
    self->nextTry_.expires_after(pause);
    co_await self->nextTry_.async_wait(asio::as_tuple(asio::use_awaitable));
    pause = std::min(pause * 2, longestPause);
  }
}

Awaitable<bool> X11Windows::activate(std::string bundleId) {
  const auto session = session_;
  const auto handles = windows_->of(bundleId);
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
