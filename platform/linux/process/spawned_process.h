// SPDX-License-Identifier: MIT
// The start and the end of a child process.
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
  FileDescriptor outputPipe;  // reading ends, non-blocking
  FileDescriptor errorPipe;
};

// Starts `executable` (a path) in a process group of its own. Throws UserError; no process
// is left then.
SpawnedProcess spawnProcess(const std::string& executable,
                            const std::vector<std::string>& arguments);

// Kills a child process that cannot be watched, with its group, and collects it.
void killProcess(pid_t id);

// Collects a child process that has ended: its exit code, or 128 + n after signal n. Throws
// std::system_error when the system does not tell; none while it has not ended.
std::optional<std::int32_t> reapProcess(pid_t id);

}  // namespace glintboard
