// SPDX-License-Identifier: MIT
// Waiting for other threads and processes.
#pragma once

#include <chrono>
#include <thread>

namespace glintboard::test {

// How many times slower than a release build this build may be.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr int slowdown = 10;
#else
inline constexpr int slowdown = 1;
#endif

// Whether `holds` becomes true within `limit`; polls every few milliseconds.
template <class Condition>
bool eventually(Condition holds,
                std::chrono::milliseconds limit = slowdown * std::chrono::seconds(10)) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > deadline) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

// A deadline that is missed only through a fault.
inline std::chrono::steady_clock::time_point soon() {
  return std::chrono::steady_clock::now() + slowdown * std::chrono::seconds(5);
}

}  // namespace glintboard::test
