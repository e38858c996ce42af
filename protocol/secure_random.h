// SPDX-License-Identifier: MIT
// The source of every secret and identifier.
#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>

namespace glintboard {

// The operating system gave no random bytes. The message names its error. No secret may be made
// without them: callers let it pass.
class SecureRandomError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Fills `bytes` from the operating system's secure random source (getrandom). Waits only early in
// the system's start, before it has entropy. Throws SecureRandomError. Any thread.
void secureRandomBytes(std::span<std::byte> bytes);

}  // namespace glintboard
