// SPDX-License-Identifier: MIT
#include "platform/spawn.h"

#include <boost/asio/error.hpp>
#include <boost/system/system_error.hpp>

#include "platform/log.h"

namespace glintboard {

void spawn(const asio::any_io_executor& executor, Awaitable<> work, std::string what) {
  asio::co_spawn(executor, std::move(work), [what = std::move(what)](std::exception_ptr failure) {
    if (!failure) {
      return;
    }
    try {
      std::rethrow_exception(failure);
    } catch (const boost::system::system_error& error) {
      if (error.code() != asio::error::operation_aborted) {
        log::warning(what, ": ", error.what());
      }
    } catch (const std::exception& error) {
      log::warning(what, ": ", error.what());
    }
  });
}

Awaitable<> sleepFor(std::chrono::steady_clock::duration duration) {
  asio::steady_timer timer(co_await asio::this_coro::executor, duration);
  co_await timer.async_wait(asio::use_awaitable);
}

}  // namespace glintboard
