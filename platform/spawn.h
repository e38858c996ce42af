// SPDX-License-Identifier: MIT
// Work that nobody awaits.
#pragma once

#include <string>

#include "platform/asio.h"

namespace glintboard {

// Starts `work` on `executor`. An exception that leaves it ends that work alone and is logged
// under `what`. What the coroutine refers to must outlive it.
void spawn(const asio::any_io_executor& executor, Awaitable<> work, std::string what);

// Resumes after `duration` of monotonic time.
Awaitable<> sleepFor(std::chrono::steady_clock::duration duration);

}  // namespace glintboard
