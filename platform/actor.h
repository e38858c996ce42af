// SPDX-License-Identifier: MIT
// The base of every stateful service.
#pragma once

#include <concepts>

#include "platform/run_on.h"

namespace glintboard {

// A service whose fields are accessed only on one serial executor. A coroutine on any executor may
// await its public operations; each enters the actor's executor first and resumes the caller on the
// caller's own. While an operation awaits, other operations of the same actor may run: a field that
// was read before an await may have changed after it.
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

  // Runs `operation` (not yet started) on the actor's executor. A caller that already runs there
  // continues without a hop.
  template <class T>
  Awaitable<T> enter(Awaitable<T> operation) {
    const asio::any_io_executor current = co_await asio::this_coro::executor;
    if (current == executor_) {
      co_return co_await std::move(operation);
    }
    co_return co_await asio::co_spawn(executor_, std::move(operation), asio::use_awaitable);
  }
  // The same for a function that awaits nothing; resumes the caller with its result.
  template <std::invocable Function>
  Awaitable<std::invoke_result_t<Function>> enter(Function function) {
    return enter(detail::callInCoroutine(std::move(function)));
  }

 private:
  asio::any_io_executor executor_;
};

}  // namespace glintboard
