// SPDX-License-Identifier: MIT
// Service discovery of agents.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/bonjour.h"
#include "tools/phone/arguments.h"

namespace glintboard::phone {

// An agent and its addresses, to be tried in order.
struct FoundAgent {
  std::optional<std::string> name;  // of its advertisement
  std::vector<AgentAddress> addresses;
};

// Searches the local network by service discovery for `timeout` at most. Returns the agent named
// `wanted`, else the only one found, else 127.0.0.1 and the default port. Throws PhoneFailure
// "several_agents" if the user must choose. `browser` may be null: nothing is found.
FoundAgent findAgent(BonjourBrowser* browser, const std::optional<std::string>& wanted,
                     std::chrono::milliseconds timeout);

}  // namespace glintboard::phone
