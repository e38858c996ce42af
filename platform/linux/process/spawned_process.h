// SPDX-License-Identifier: MIT
// Starts and reaps child processes.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_descriptor.h"

namespace glintboard {

struct SpawnedProcess {
  pid_t id = 0;               // also the identifier of its process group
  FileDescriptor descriptor;  // a pidfd: readable when the process has ended
  FileDescriptor outputPipe;  // the reading ends, non-blocking
  FileDescriptor errorPipe;
};

// Starts `executable` (a path) in a process group of its own. Throws UserError and leaves no
// process on failure.
SpawnedProcess spawnProcess(const std::string& executable,
                            const std::vector<std::string>& arguments);

// Kills the process group of a child and reaps the child. Blocks until it has ended.
void killProcess(pid_t id);

// Reaps a child process: its exit code, or 128 + n after signal n; none while it runs. Throws
// std::system_error if it is not an unreaped child.
std::optional<std::int32_t> reapProcess(pid_t id);

}  // namespace glintboard
