// SPDX-License-Identifier: MIT
// Where the agent is.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/bonjour.h"
#include "tools/phone/arguments.h"

namespace glintboard::phone {

// One agent, with the addresses to try in turn.
struct FoundAgent {
  std::optional<std::string> name;  // under which it advertises itself
  std::vector<AgentAddress> addresses;
};

// The agent that the local network's service discovery knows: the one called `wanted`, else the
// only one there is. Without any, this computer's own port is worth a try. Throws PhoneFailure when
// the choice is the user's. Blocks for `timeout` at most; `browser` may be null.
FoundAgent findAgent(BonjourBrowser* browser, const std::optional<std::string>& wanted,
                     std::chrono::milliseconds timeout);

}  // namespace glintboard::phone
