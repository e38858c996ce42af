// SPDX-License-Identifier: MIT
// Waiting for coroutines on the test's thread.
#pragma once

#include <boost/asio/use_future.hpp>
#include <future>
#include <stdexcept>

#include "platform/asio.h"
#include "tests/support/eventually.h"

namespace glintboard::test {

// Runs `work` on `executor` and returns its result on the test's thread. Throws what it throws, or
// when it takes longer than `limit`.
template <class T>
T await(const asio::any_io_executor& executor, Awaitable<T> work,
        std::chrono::seconds limit = slowdown * std::chrono::seconds(20)) {
  auto result = asio::co_spawn(executor, std::move(work), asio::use_future);
  if (result.wait_for(limit) != std::future_status::ready) {
    throw std::runtime_error("the awaited operation did not end in time");
  }
  return result.get();
}

}  // namespace glintboard::test
