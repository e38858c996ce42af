// SPDX-License-Identifier: MIT
// The buffer of one output stream of a process.
#pragma once

#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>

namespace glintboard {

// Collects bytes; any thread may append and read. Keeps the first MiB and drops the rest, which
// bounds the memory for a program that never stops printing.
class LockedData {
 public:
  static constexpr std::size_t limit = std::size_t{1} << 20;

  // Appends what fits into the limit.
  void append(std::string_view bytes) {
    const std::lock_guard guard(lock_);
    const std::string_view kept = bytes.substr(0, limit - storage_.size());
    storage_.append(kept);
    truncated_ = truncated_ || kept.size() < bytes.size();
  }

  // The collected bytes; empty if they are not UTF-8. Leaves out a character that the limit has
  // cut.
  std::string text() const;

 private:
  mutable std::mutex lock_;
  std::string storage_;
  bool truncated_ = false;
};

}  // namespace glintboard
