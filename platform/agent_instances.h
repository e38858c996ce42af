// SPDX-License-Identifier: MIT
// The other running copies of this agent.
#pragma once

#include <memory>
#include <optional>
#include <vector>

namespace glintboard {

// Another running copy of the agent, of the same user. An instance whose process identifier was
// reused by another program counts as terminated. Nothing throws or blocks.
class AgentInstance {
 public:
  virtual ~AgentInstance() = default;
  virtual int processIdentifier() const = 0;
  // Asks the instance to terminate. False when the request could not be sent.
  virtual bool terminate() = 0;
  // Kills the instance. False when that failed.
  virtual bool forceTerminate() = 0;
  virtual bool isTerminated() = 0;
};

class AgentInstances {
 public:
  virtual ~AgentInstances() = default;
  // Registers this process and returns the older instances, the oldest first. None when a younger
  // instance is running: this process should then exit. Blocks for up to a second. Never throws.
  virtual std::optional<std::vector<std::unique_ptr<AgentInstance>>> claim() = 0;
};

}  // namespace glintboard
