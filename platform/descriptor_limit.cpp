// SPDX-License-Identifier: MIT
#include "platform/descriptor_limit.h"

#include <sys/resource.h>

#include <algorithm>

namespace glintboard {
namespace {

constexpr rlim_t wanted = 4096;

// Read between fork and exec, where nothing may be allocated or locked.
constinit rlimit givenLimit{};

}  // namespace

void raiseDescriptorLimit() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) {
    return;
  }
  givenLimit = limit;
  limit.rlim_cur = std::max(limit.rlim_cur, std::min(limit.rlim_max, wanted));
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

std::size_t descriptorLimit() {
  rlimit limit{};
  return ::getrlimit(RLIMIT_NOFILE, &limit) == 0 ? limit.rlim_cur : 1024;
}

void restoreDescriptorLimit() {
  if (givenLimit.rlim_max != 0) {
    ::setrlimit(RLIMIT_NOFILE, &givenLimit);
  }
}

void restoreDescriptorLimit(pid_t process) {
  if (givenLimit.rlim_max != 0) {
    ::prlimit(process, RLIMIT_NOFILE, &givenLimit, nullptr);
  }
}

}  // namespace glintboard
