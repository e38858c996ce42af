// SPDX-License-Identifier: MIT
// Identifies processes despite the reuse of process ids.
#pragma once

#include <sys/types.h>

#include <compare>
#include <cstdint>
#include <optional>

#include "platform/file_descriptor.h"

namespace glintboard {

// A process id together with the start time, which makes it unique. Ordered from the oldest to the
// youngest process.
struct ProcessIdentity {
  std::uint64_t startTime = 0;  // clock ticks since the system started
  pid_t id = 0;
  auto operator<=>(const ProcessIdentity&) const = default;
};

// The identity of the running process `id`; none when it has ended (also as a zombie) or belongs to
// another user.
std::optional<ProcessIdentity> identifyProcess(pid_t id);

// A pidfd for exactly this process; none when it has ended or belongs to another user.
FileDescriptor openProcess(const ProcessIdentity& identity);

}  // namespace glintboard
