// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>

namespace glintboard {

// The operating system gave no random bytes. No secret may be made without them.
class SecureRandomError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Fills `bytes` from the operating system's secure random source. Any thread.
void secureRandomBytes(std::span<std::byte> bytes);

}  // namespace glintboard
