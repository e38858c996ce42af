// SPDX-License-Identifier: MIT
// Processes that cannot be mistaken for one another.
#pragma once

#include <sys/types.h>

#include <compare>
#include <cstdint>
#include <optional>

#include "platform/file_descriptor.h"

namespace glintboard {

// Process identifiers are reused; together with the time of its start one names a single process.
// Ordered from the oldest to the youngest.
struct ProcessIdentity {
  std::uint64_t startTime = 0;  // clock ticks since the system started
  pid_t id = 0;
  auto operator<=>(const ProcessIdentity&) const = default;
};

// The running process `id`; none when there is none, it has ended (a zombie too), or it is not
// this user's.
std::optional<ProcessIdentity> identifyProcess(pid_t id);

// A pidfd for exactly this process; none when it is not running any more or not this user's.
FileDescriptor openProcess(const ProcessIdentity& identity);

}  // namespace glintboard
