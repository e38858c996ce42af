// SPDX-License-Identifier: MIT
// The limit of open descriptors (files, sockets) of this process.
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace glintboard {

// Raises the soft limit, usually 1,024, to what a thousand connections need, at most to the hard
// limit. Call it in main before starting threads.
void raiseDescriptorLimit();
// The current soft limit.
std::size_t descriptorLimit();
// Restores the limit that this process was started with. For a child process between fork and exec:
// async-signal-safe.
void restoreDescriptorLimit();
// The same for a process that already runs.
void restoreDescriptorLimit(pid_t process);

}  // namespace glintboard
