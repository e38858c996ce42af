// SPDX-License-Identifier: MIT
// Sleep and wake-up of the computer.
#pragma once

#include <functional>

namespace glintboard {

// Reports when the computer wakes up. A missing system service is not an error: wake-ups are
// reported once the service runs.
class SleepWatch {
 public:
  virtual ~SleepWatch() = default;
  // Calls `woken` after every sleep from now on, on a thread of the watch. Any thread.
  virtual void start(std::function<void()> woken) = 0;
};

}  // namespace glintboard
