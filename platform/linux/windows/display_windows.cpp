// SPDX-License-Identifier: MIT
#include "platform/linux/windows/display_windows.h"

#include <algorithm>

#include "platform/spawn.h"

namespace glintboard {
namespace {

constexpr std::chrono::seconds shortestRetry{1};
constexpr std::chrono::seconds longestRetry{30};

}  // namespace

DisplayWindows::DisplayWindows(Executors& executors, std::shared_ptr<OpenWindows> windows,
                               Connect connect)
    : service_(executors.service()),
      windows_(std::move(windows)),
      connect_(std::move(connect)),
      nextTry_(service_) {}

void DisplayWindows::start() {
  if (!started_.exchange(true)) {
    spawn(service_, run(shared_from_this()), "open windows");
  }
}

void DisplayWindows::stop() {
  asio::post(service_, [self = shared_from_this()] {
    self->stopped_ = true;
    self->nextTry_.cancel();
    if (self->session_) {
      self->session_->stop();
    }
  });
}

Awaitable<bool> DisplayWindows::activate(std::string bundleId) {
  const auto session = session_;
  auto windows = windows_->of(bundleId);
  if (!session || windows.empty()) {
    co_return false;
  }
  co_return co_await session->activate(std::move(windows));
}

Awaitable<LaunchToken> DisplayWindows::launchToken() {
  const auto session = session_;
  if (!session) {
    co_return LaunchToken();
  }
  co_return co_await session->launchToken();
}

Awaitable<> DisplayWindows::run(std::shared_ptr<DisplayWindows> self) {
  auto pause = shortestRetry;
  while (!self->stopped_) {
    const auto session = co_await self->connect_();
    if (session && !self->stopped_) {
      self->session_ = session;
      co_await session->run();
      self->session_.reset();
      pause = shortestRetry;
    }
    if (self->stopped_) {
      co_return;
    }
    self->nextTry_.expires_after(pause);
    co_await self->nextTry_.async_wait(asio::as_tuple(asio::use_awaitable));
    pause = std::min(pause * 2, longestRetry);
  }
}

}  // namespace glintboard
