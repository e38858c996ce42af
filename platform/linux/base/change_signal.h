// SPDX-License-Identifier: MIT
// A condition variable for the coroutines of one executor.
#pragma once

#include <set>

#include "platform/asio.h"

namespace glintboard {

// For coroutines of one serial executor, which must end before this object is destroyed.
class ChangeSignal {
 public:
  // Resumes after the next `notify` or at the deadline. The caller checks its condition again.
  Awaitable<> next(std::chrono::steady_clock::time_point deadline) {
    Waiting waiting(*this, co_await asio::this_coro::executor, deadline);
    co_await waiting.timer.async_wait(asio::as_tuple(asio::use_awaitable));
  }
  // Wakes all waiting coroutines.
  void notify() {
    for (auto* timer : waiting_) {
      timer->cancel();
    }
  }

 private:
  // Registers the timer of a waiting coroutine during its lifetime.
  struct Waiting {
    Waiting(ChangeSignal& signal, const asio::any_io_executor& executor,
            std::chrono::steady_clock::time_point deadline)
        : owner(signal), timer(executor, deadline) {
      owner.waiting_.insert(&timer);
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting() { owner.waiting_.erase(&timer); }

    ChangeSignal& owner;
    asio::steady_timer timer;
  };

  std::set<asio::steady_timer*> waiting_;
};

}  // namespace glintboard
