// SPDX-License-Identifier: MIT
// The steps of the way from a phone to this computer's agent.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/bonjour.h"
#include "platform/local_network.h"
#include "tools/phone/failure.h"
#include "tools/phone/phone_state.h"

namespace glintboard::phone {

// What was found out about one step. `step` and `code` are what --json calls them.
struct Finding {
  std::string step;
  std::string text;
  std::string code;              // of the failure; empty where the step went well
  std::string command;           // mends it, or helps where the step went well; may be empty
  ExitCode exit = ExitCode::ok;  // of a program that ends with this failure

  bool wentWell() const { return code.empty(); }
};

// How a stranger's visit to one address went.
struct Visit {
  LocalAddress at;
  std::chrono::duration<double> time{};
  std::optional<PhoneFailure> failure;
};

// Connects to all addresses at once, upgrades, and asks as a stranger, whom an agent refuses.
// Takes three times `timeout` at most.
std::vector<Visit> visitAll(const std::vector<LocalAddress>& addresses,
                            std::chrono::milliseconds timeout);

// Whether the agent runs and has its port. Without a failure the visits are worth reporting.
Finding examineAgent(const std::optional<PortHolder>& holder, const std::vector<Visit>& visits);
// One for each address; and whether a phone could have any of them. `firewall`: what may keep it
// out.
std::vector<Finding> examineVisits(const std::vector<Visit>& visits,
                                   const std::optional<Firewall>& firewall);
// Whether the agent at `address` knows the phone of that state.
Finding examinePairing(const PhoneStateFile& state, const LocalAddress& address,
                       std::chrono::milliseconds timeout);
// Whether phones find the agent by themselves. `isServed`: whether an agent is there to be found.
std::vector<Finding> examineDiscovery(BonjourBrowser& browser, LocalNetwork& network,
                                      const std::vector<LocalAddress>& addresses, bool isServed,
                                      std::chrono::milliseconds timeout);

// The ways in by which a phone connects to the agent, and finds it.
PortRule connectionPortRule();
PortRule discoveryPortRule();
// The command that lets everybody through the gate.
std::string openingCommand(const Firewall& firewall, const PortRule& gate);
// What is to be said where that command may not be right to the letter; else empty.
std::string openingCaveat(const Firewall& firewall);

}  // namespace glintboard::phone
