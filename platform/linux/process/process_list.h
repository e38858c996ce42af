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
  // The id of its session.
  pid_t session = 0;
  // The program's file, as the system resolved it.
  std::string executable;
  // Its command line, the program's name included.
  std::vector<std::string> arguments;
  // The lines of its control groups.
  std::string controlGroups;
};

// The living processes of this user that run a program. Those that end meanwhile may be missing.
// Takes some ten microseconds for each: call it on a worker.
std::vector<Process> ownProcesses();

// One process, if it lives and is this user's. Call it on a worker.
std::optional<Process> ownProcess(pid_t id);

// A living process of a session, or none.
std::optional<pid_t> processOfSession(pid_t session);

}  // namespace glintboard
