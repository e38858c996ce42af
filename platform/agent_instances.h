// SPDX-License-Identifier: MIT
// The other running copies of this agent.
#pragma once

#include <memory>
#include <optional>
#include <vector>

namespace glintboard {

// Another running copy of the agent, of the same user. A process identifier that has been reused
// by another program counts as terminated. No operation throws.
class AgentInstance {
 public:
  virtual ~AgentInstance() = default;
  virtual int processIdentifier() const = 0;
  // Asks the instance to end. False when the request could not be made.
  virtual bool terminate() = 0;
  // Ends the instance without asking. False when that could not be done.
  virtual bool forceTerminate() = 0;
  virtual bool isTerminated() = 0;
};

class AgentInstances {
 public:
  virtual ~AgentInstances() = default;
  // Registers this process and returns the older instances, oldest first; none when a younger
  // instance is running, in whose favour this process should end. Blocks briefly.
  virtual std::optional<std::vector<std::unique_ptr<AgentInstance>>> claim() = 0;
};

}  // namespace glintboard
