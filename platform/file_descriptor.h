// SPDX-License-Identifier: MIT
// Ownership of a file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace glintboard {

// Closes its descriptor when destroyed; -1 means none.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(other.release()) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~FileDescriptor() {
    if (descriptor_ >= 0) {
      ::close(descriptor_);
    }
  }

  int get() const { return descriptor_; }
  explicit operator bool() const { return descriptor_ >= 0; }
  // Gives the descriptor away; this owns none afterwards.
  int release() { return std::exchange(descriptor_, -1); }
  // Closes the descriptor now and reports whether the system could.
  bool close() { return ::close(release()) == 0; }

 private:
  int descriptor_ = -1;
};

}  // namespace glintboard
