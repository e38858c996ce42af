// SPDX-License-Identifier: MIT
#include "platform/async_lock.h"

namespace glintboard {

AsyncLock::AsyncLock(const asio::any_io_executor& executor) : slot_(executor, 1) {}

Awaitable<AsyncLock::Guard> AsyncLock::acquire() {
  co_await slot_.async_send(error_code{}, asio::use_awaitable);
  co_return Guard(this);
}

AsyncLock::Guard::~Guard() {
  if (lock_ != nullptr) {
    lock_->slot_.try_receive([](error_code) {});
  }
}

}  // namespace glintboard
