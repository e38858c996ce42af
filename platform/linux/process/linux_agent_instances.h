// SPDX-License-Identifier: MIT
// Finds other running agents through a shared file.
#pragma once

#include <filesystem>

#include "platform/agent_instances.h"

namespace glintboard {

// The file has a line "process-id start-time" for each instance. It is locked only during `claim`,
// so an instance that hangs does not block others. Lines of processes that have ended, or whose id
// was reused, are removed.
class LinuxAgentInstances : public AgentInstances {
 public:
  // `folder` must be accessible only to this user. Without one `claim` finds no instances.
  explicit LinuxAgentInstances(std::optional<std::filesystem::path> folder)
      : folder_(std::move(folder)) {}

  // Waits for the lock for at most a second and then continues without it.
  std::optional<std::vector<std::unique_ptr<AgentInstance>>> claim() override;

 private:
  std::optional<std::filesystem::path> folder_;
};

}  // namespace glintboard
