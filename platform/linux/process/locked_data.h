// SPDX-License-Identifier: MIT
// The collector of one output stream of a process.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>

namespace glintboard {

// Bytes that several threads may append and read. The first MiB is kept and the rest dropped, so
// that a program that prints without end costs no more.
class LockedData {
 public:
  static constexpr std::size_t limit = std::size_t{1} << 20;

  void append(std::string_view bytes) {
    const std::lock_guard guard(lock_);
    const std::string_view kept = bytes.substr(0, limit - storage_.size());
    storage_.append(kept);
    truncated_ = truncated_ || kept.size() < bytes.size();
  }

  // What was collected, as text: empty when it is not UTF-8. A character that the limit cut is
  // left out.
  std::string text() const;

 private:
  mutable std::mutex lock_;
  std::string storage_;
  bool truncated_ = false;
};

}  // namespace glintboard
