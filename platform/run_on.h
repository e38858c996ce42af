// SPDX-License-Identifier: MIT
// Plain functions, called on another executor.
#pragma once

#include <boost/asio/bind_executor.hpp>
#include <concepts>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

#include "platform/asio.h"

namespace glintboard {

namespace detail {
// A coroutine that only calls `function`. The exception of the function leaves it.
template <class Function>
Awaitable<std::invoke_result_t<Function>> callInCoroutine(Function function) {
  co_return function();
}
}  // namespace detail

// Calls `function` on `executor` and resumes the caller on its own executor with the result or the
// exception. A lambda that is written as the argument needs two statements (platform/asio.h).
template <class Function>
Awaitable<std::invoke_result_t<Function>> runOn(asio::any_io_executor executor, Function function) {
  co_return co_await asio::co_spawn(executor, detail::callInCoroutine(std::move(function)),
                                    asio::use_awaitable);
}

// Like `runOn`, but waits for at most `deadline`. The result is none after that; the call goes on,
// and its result is dropped. The caller's executor must support timers.
template <class Function>
Awaitable<std::optional<std::invoke_result_t<Function>>> runBefore(
    std::chrono::steady_clock::duration deadline, asio::any_io_executor executor,
    Function function) {
  using Result = std::invoke_result_t<Function>;
  struct Call {
    explicit Call(const asio::any_io_executor& caller) : done(caller) {}
    asio::steady_timer done;
    std::optional<Result> result;
    std::exception_ptr failure;
  };
  const auto caller = co_await asio::this_coro::executor;
  auto call = std::make_shared<Call>(caller);
  call->done.expires_after(deadline);
  asio::co_spawn(executor, detail::callInCoroutine(std::move(function)),
                 asio::bind_executor(caller, [call](std::exception_ptr failure, Result result) {
                   call->failure = std::move(failure);
                   if (!call->failure) {
                     call->result = std::move(result);
                   }
                   call->done.cancel();
                 }));
  co_await call->done.async_wait(asio::as_tuple(asio::use_awaitable));
  if (call->failure) {
    std::rethrow_exception(call->failure);
  }
  co_return std::move(call->result);
}

}  // namespace glintboard
