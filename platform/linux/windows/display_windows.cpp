// SPDX-License-Identifier: MIT
#include "platform/linux/windows/display_windows.h"

#include <algorithm>

#include "platform/spawn.h"

namespace glintboard {

namespace {

constexpr std::chrono::seconds shortestRetry{1};
constexpr std::chrono::seconds longestRetry{30};

}  // namespace

DisplayWindows::DisplayWindows(Executors& executors, std::shared_ptr<OpenWindows> windows)
    : service_(executors.service()), windows_(std::move(windows)), nextTry_(service_) {}

void DisplayWindows::start() {
  spawn(service_, run(shared_from_this()), "open windows");
}

void DisplayWindows::stop() {
  asio::post(service_, [self = shared_from_this()] {
    self->stopped_ = true;
    self->nextTry_.cancel();
    self->disconnect();
  });
}

Awaitable<> DisplayWindows::run(std::shared_ptr<DisplayWindows> self) {
  auto pause = shortestRetry;
  while (!self->stopped_) {
    auto following = self->follow();
    const bool connected = co_await std::move(following);
    if (self->stopped_) {
      co_return;
    }
    if (connected) {
      pause = shortestRetry;
    }
    self->nextTry_.expires_after(pause);
    co_await self->nextTry_.async_wait(asio::as_tuple(asio::use_awaitable));
    pause = std::min(pause * 2, longestRetry);
  }
}

}  // namespace glintboard
