// SPDX-License-Identifier: MIT
// Sleep of the whole computer.
#pragma once

#include <functional>

namespace glintboard {

// Tells when the computer wakes up. Where the system does not tell, nothing is ever told, which is
// no error; a system service that comes later is joined.
class SleepWatch {
 public:
  virtual ~SleepWatch() = default;
  // From now on `woken` is called after every sleep, on a thread of the watch. Any thread.
  virtual void start(std::function<void()> woken) = 0;
};

}  // namespace glintboard
