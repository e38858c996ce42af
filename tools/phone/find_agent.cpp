// SPDX-License-Identifier: MIT
#include "tools/phone/find_agent.h"

#include <map>

#include "protocol/glintboard_service.h"
#include "tools/phone/failure.h"

namespace glintboard::phone {

FoundAgent findAgent(BonjourBrowser* browser, const std::optional<std::string>& wanted,
                     std::chrono::milliseconds timeout) {
  std::map<std::string, std::vector<AgentAddress>> agents;
  if (browser != nullptr) {
    auto instances = browser->browse(std::string(GlintboardService::bonjourType), timeout);
    for (auto& found : std::move(instances).value_or(std::vector<BonjourInstance>())) {
      if (!found.address.empty()) {
        agents[found.name].push_back({std::move(found.address), found.port});
      }
    }
  }
  if (agents.empty()) {
    return {std::nullopt, {{"127.0.0.1", GlintboardService::defaultPort}}};
  }
  auto chosen = agents.begin();
  if (wanted && agents.contains(*wanted)) {
    chosen = agents.find(*wanted);
  } else if (agents.size() > 1) {
    std::string names;
    for (const auto& [name, addresses] : agents) {
      names += (names.empty() ? "" : ", ") + name + " (" + addresses.front().text() + ")";
    }
    throw PhoneFailure(ExitCode::usage, "several_agents",
                       "There are several agents: " + names + ". Choose one with --host HOST.");
  }
  return {chosen->first, chosen->second};
}

}  // namespace glintboard::phone
