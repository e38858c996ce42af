// SPDX-License-Identifier: MIT
// The processes of this user, read from /proc.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace glintboard {

struct Process {
  pid_t id = 0;
  // The session id.
  pid_t session = 0;
  // The program's file with symbolic links resolved.
  std::string executable;
  // The command line including the program's name.
  std::vector<std::string> arguments;
  // The content of /proc/PID/cgroup.
  std::string controlGroups;
};

// The running processes of this user. Processes that end during the call may be missing. Takes some
// ten microseconds for each process: call it on a worker.
std::vector<Process> ownProcesses();

// The process `id`; none when it has ended or belongs to another user. Call it on a worker.
std::optional<Process> ownProcess(pid_t id);

// A running process of a session, or none. Call it on a worker.
std::optional<pid_t> processOfSession(pid_t session);

}  // namespace glintboard
