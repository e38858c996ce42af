// SPDX-License-Identifier: MIT
// Copies of the agent that know each other through a file.
#pragma once

#include <filesystem>

#include "platform/agent_instances.h"

namespace glintboard {

// The file has a line "process-id start-time" for each instance and is locked only while one looks
// at it, so an instance that hangs holds up nobody. A line of a process that is gone, or whose
// number another program bears now, is dropped.
class LinuxAgentInstances : public AgentInstances {
 public:
  // `folder` must be the user's alone. Without one there are no other instances.
  explicit LinuxAgentInstances(std::optional<std::filesystem::path> folder)
      : folder_(std::move(folder)) {}

  // Waits at most a second for the lock and then goes on without it.
  std::optional<std::vector<std::unique_ptr<AgentInstance>>> claim() override;

 private:
  std::optional<std::filesystem::path> folder_;
};

}  // namespace glintboard
