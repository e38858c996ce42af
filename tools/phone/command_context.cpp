// SPDX-License-Identifier: MIT
#include "tools/phone/command_context.h"

#include <algorithm>

namespace glintboard::phone {

FoundAgent CommandContext::chooseAgent(const std::optional<std::string>& wanted) const {
  if (arguments.host) {
    return {std::nullopt, {*arguments.host}};
  }
  constexpr std::chrono::milliseconds longestSearch{2000};
  auto agent = findAgent(browser, wanted, std::min(arguments.timeout, longestSearch));
  if (agent.name) {
    output.note("Found " + *agent.name + " at " + agent.addresses.front().text() + ".");
  }
  return agent;
}

AgentSession CommandContext::open(const FoundAgent& agent,
                                  const std::optional<std::string>& token) const {
  for (std::size_t index = 0;; ++index) {
    try {
      const Deadline deadline = std::chrono::steady_clock::now() + arguments.timeout;
      return {PhoneConnection(agent.addresses.at(index), token, deadline), arguments.timeout};
    } catch (const PhoneFailure&) {
      if (index + 1 == agent.addresses.size()) {
        throw;
      }
    }
  }
}

AgentSession CommandContext::openPaired() const {
  const PhoneState state = stateFile.load();
  if (!state.token) {
    throw PhoneFailure(ExitCode::refused, "not_paired",
                       "Not paired yet. Run: glintboard-phone pair PIN");
  }
  return open(chooseAgent(state.agentName), state.token);
}

}  // namespace glintboard::phone
