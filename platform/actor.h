// SPDX-License-Identifier: MIT
// The base of every stateful service.
#pragma once

#include "platform/asio.h"

namespace glintboard {

// A service whose fields are touched only on one serial executor. Its public operations are
// coroutines that any executor's coroutine may await; each enters the actor's executor first and
// resumes the caller on its own. While an operation awaits, others of the same actor may run, so a
// field read before an await may have changed after it.
//
// An actor must outlive every operation that was started on it.
class Actor {
 public:
  Actor(const Actor&) = delete;
  Actor& operator=(const Actor&) = delete;

  const asio::any_io_executor& executor() const { return executor_; }

 protected:
  explicit Actor(asio::any_io_executor executor) : executor_(std::move(executor)) {}
  ~Actor() = default;

  // Runs `operation` (not yet started) in the actor's turn. A caller that already runs on the
  // actor's executor continues without a hop.
  template <class T>
  Awaitable<T> enter(Awaitable<T> operation) {
    const asio::any_io_executor current = co_await asio::this_coro::executor;
    if (current == executor_) {
      co_return co_await std::move(operation);
    }
    co_return co_await asio::co_spawn(executor_, std::move(operation), asio::use_awaitable);
  }

 private:
  asio::any_io_executor executor_;
};

}  // namespace glintboard
