// SPDX-License-Identifier: MIT
// How many descriptors (open files, sockets) this process may have.
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace glintboard {

// Sessions allow programs 1,024 unless they ask for more. Asks for what a thousand connections
// need, as far as the system lets it. For main, before there are other threads.
void raiseDescriptorLimit();
// The limit now.
std::size_t descriptorLimit();
// Gives this process the limit back that it was started with: for a new process, before it runs
// another program. Safe between fork and exec.
void restoreDescriptorLimit();
// The same for a program that runs already.
void restoreDescriptorLimit(pid_t process);

}  // namespace glintboard
