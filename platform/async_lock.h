// SPDX-License-Identifier: MIT
// Mutual exclusion between coroutines of one executor.
#pragma once

#include <boost/asio/experimental/channel.hpp>

#include "platform/asio.h"

namespace glintboard {

// A lock that a coroutine may hold across its awaits. Waiters acquire it in the order of their
// calls. All holders and waiters run on the executor given at construction.
class AsyncLock {
 public:
  explicit AsyncLock(const asio::any_io_executor& executor);

  // Releases the lock when destroyed.
  class Guard {
   public:
    explicit Guard(AsyncLock* lock) : lock_(lock) {}
    Guard(Guard&& other) noexcept : lock_(std::exchange(other.lock_, nullptr)) {}
    Guard& operator=(Guard&&) = delete;
    ~Guard();

   private:
    AsyncLock* lock_;
  };

  // Resumes when the caller holds the lock.
  Awaitable<Guard> acquire();

 private:
  asio::experimental::channel<void(error_code)> slot_;
};

}  // namespace glintboard
