// SPDX-License-Identifier: MIT
// Ownership of a file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace glintboard {

// Owns a descriptor and closes it when destroyed; -1 means none. Move-only.
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

  // The descriptor, still owned by this object; -1 means none.
  int get() const { return descriptor_; }
  explicit operator bool() const { return descriptor_ >= 0; }
  // Passes the ownership to the caller; this object owns none afterwards.
  int release() { return std::exchange(descriptor_, -1); }
  // Closes the descriptor now. False when the system reports an error, such as a failed write.
  bool close() { return ::close(release()) == 0; }

 private:
  int descriptor_ = -1;
};

}  // namespace glintboard
