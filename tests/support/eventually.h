// Waiting for what happens on other threads and in other processes.
#pragma once

#include <chrono>
#include <thread>

namespace glintboard::test {

// Whether `holds` becomes true within `limit`.
template <class Condition>
bool eventually(Condition holds, std::chrono::seconds limit = std::chrono::seconds(10)) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace glintboard::test
