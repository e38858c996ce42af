// SPDX-License-Identifier: MIT
// Detached coroutines, and sleeping.
#pragma once

#include <string>

#include "platform/asio.h"

namespace glintboard {

// Starts `work` on `executor` and does not wait for it. An exception that leaves it ends only this
// work and is logged under `what`. What the coroutine refers to must outlive it.
void spawn(const asio::any_io_executor& executor, Awaitable<> work, std::string what);

// Resumes after `duration` of monotonic time.
Awaitable<> sleepFor(std::chrono::steady_clock::duration duration);

}  // namespace glintboard
