// SPDX-License-Identifier: MIT
#include "protocol/secure_random.h"

#include <sys/random.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace glintboard {

void secureRandomBytes(std::span<std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::getrandom(bytes.data(), bytes.size(), 0);
    if (count < 0) {
      if (errno == EINTR) {
        continue;
      }
      throw SecureRandomError("The system gives no secure random numbers: " +
                              std::string(std::strerror(errno)));
    }
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

}  // namespace glintboard
