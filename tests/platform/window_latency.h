// How quickly the agent follows its desktop.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/eventually.h"

namespace glintboard::test {

// How long after the desktop itself says so (`shown`, asked again and again) the agent does
// (`known`). At most a second.
template <class Shown, class Known>
std::chrono::milliseconds lag(Shown shown, Known known) {
  using Clock = std::chrono::steady_clock;
  std::atomic<Clock::duration> knownAt = Clock::duration::zero();
  std::thread watching([&] {
    const auto deadline = Clock::now() + std::chrono::seconds(11);
    while (!known() && Clock::now() < deadline) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    knownAt = Clock::now().time_since_epoch();
  });
  eventually(shown);
  const auto shownAt = Clock::now().time_since_epoch();
  watching.join();
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::max(Clock::duration::zero(), knownAt.load() - shownAt));
}

// Opens and closes a window ten times; returns the middle one of the lags of each. Another program
// may have the processor at any one moment.
template <class Open, class Shown, class Known>
std::pair<std::chrono::milliseconds, std::chrono::milliseconds> medianLags(Open open, Shown shown,
                                                                           Known known) {
  std::vector<std::chrono::milliseconds> opening;
  std::vector<std::chrono::milliseconds> closing;
  for (int i = 0; i < 10; ++i) {
    auto window = open();
    opening.push_back(lag(shown, known));
    window->signal(SIGKILL);
    closing.push_back(lag([&] { return !shown(); }, [&] { return !known(); }));
  }
  std::ranges::sort(opening);
  std::ranges::sort(closing);
  return {opening[5], closing[5]};
}

}  // namespace glintboard::test
