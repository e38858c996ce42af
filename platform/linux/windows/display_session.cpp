// SPDX-License-Identifier: MIT
#include "platform/linux/windows/display_session.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstddef>

namespace glintboard {

Awaitable<> DisplaySession::run() {
  FileDescriptor duplicate(::fcntl(socket(), F_DUPFD_CLOEXEC, 0));
  if (duplicate && !ended_) {
    readable_.assign(duplicate.release());
    begin();
    while (receive()) {
      const auto [error] = co_await readable_.async_wait(asio::posix::stream_descriptor::wait_read,
                                                         asio::as_tuple(asio::use_awaitable));
      if (error) {
        break;
      }
    }
  }
  ended_ = true;
  readable_.close();
  windows_->clear();
  notify();
}

void DisplaySession::stop() {
  ended_ = true;
  error_code ignored;
  readable_.cancel(ignored);
}

void DisplaySession::ping() {
  ++pings_;
  sendPing();
}

void DisplaySession::pingAnswered() {
  ++answers_;
  hangs_ = false;
}

Awaitable<bool> DisplaySession::isAnswering(Clock::time_point deadline) {
  if (!isUsable()) {
    co_return false;
  }
  ping();
  const auto answered = [this, own = pings_] { return answers_ >= own; };
  const bool inTime = co_await waitUntil(answered, deadline);
  hangs_ = hangs_ || !inTime;
  co_return inTime;
}

Awaitable<bool> DisplaySession::waitUntil(std::function<bool()> condition,
                                          Clock::time_point deadline) {
  while (!condition()) {
    if (ended_ || Clock::now() >= deadline) {
      co_return false;
    }
    co_await events_.next(deadline);
  }
  co_return true;
}

FileDescriptor connectToSocket(const std::string& path, bool abstract) {
  sockaddr_un address{};
  constexpr std::size_t capacity = sizeof address.sun_path - 1;
  if (path.size() > capacity - 1) {
    return {};
  }
  address.sun_family = AF_UNIX;
  // The name of an abstract socket follows a NUL and ends with the address.
  path.copy(address.sun_path + (abstract ? 1 : 0), path.size());
  const auto length = offsetof(sockaddr_un, sun_path) + 1 + path.size();
  FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (socket && ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address),
                          static_cast<socklen_t>(length)) != 0) {
    return {};
  }
  return socket;
}

}  // namespace glintboard
