// SPDX-License-Identifier: MIT
// Callbacks that are notified of changes.
#pragma once

#include <functional>
#include <mutex>
#include <vector>

namespace glintboard {

// Callbacks that are called at every change, for as long as this object exists: what a callback
// uses it holds weakly, or outlives this. Any thread.
class Observers {
 public:
  void add(std::function<void()> observer) {
    const std::lock_guard lock(mutex_);
    all_.push_back(std::move(observer));
  }
  // Calls all of them on the calling thread. They must not throw, and learn what has changed from
  // whoever tells them.
  void notify() const {
    std::vector<std::function<void()>> all;
    {
      const std::lock_guard lock(mutex_);
      all = all_;
    }
    for (const auto& observer : all) {
      observer();
    }
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::function<void()>> all_;
};

}  // namespace glintboard
