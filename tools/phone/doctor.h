// SPDX-License-Identifier: MIT
// The checks of `glintboard-phone doctor`: can a phone find and reach the agent of this computer?
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

// The result of one check. `step` and `code` are printed by --json.
struct Finding {
  std::string step;
  std::string text;
  std::string code;              // of the failure; empty if the check passed
  std::string command;           // a fix, or a next step if the check passed; may be empty
  ExitCode exit = ExitCode::ok;  // of the program if this is the first failure

  bool wentWell() const { return code.empty(); }
};

// The result of connecting to one address without a token.
struct Visit {
  LocalAddress at;
  std::chrono::duration<double> time{};
  std::optional<PhoneFailure> failure;
};

// Connects to all addresses in parallel, upgrades, and sends a `deck.sync` without a token; the
// refusal shows that an agent answers. Blocks for three times `timeout` at most.
std::vector<Visit> visitAll(const std::vector<LocalAddress>& addresses,
                            std::chrono::milliseconds timeout);

// Checks that the agent runs and holds its port. If this fails, the visits say nothing more.
Finding examineAgent(const std::optional<PortHolder>& holder, const std::vector<Visit>& visits);
// One result for each address, and a failure if all are loopback addresses. `firewall` is the one
// that may block them.
std::vector<Finding> examineVisits(const std::vector<Visit>& visits,
                                   const std::optional<Firewall>& firewall);
// Checks that the agent at `address` accepts the token in `state`.
Finding examinePairing(const PhoneStateFile& state, const LocalAddress& address,
                       std::chrono::milliseconds timeout);
// Checks Avahi, and if `isServed` (an agent runs) its advertisement and its name. Blocks for
// `timeout`.
std::vector<Finding> examineDiscovery(BonjourBrowser& browser, LocalNetwork& network,
                                      const std::vector<LocalAddress>& addresses, bool isServed,
                                      std::chrono::milliseconds timeout);

// The ports that phones need: for the connection (TCP), and for service discovery (mDNS, UDP).
PortRule connectionPortRule();
PortRule discoveryPortRule();
// The command that opens the port in this firewall.
std::string openingCommand(const Firewall& firewall, const PortRule& rule);
// A remark for the user if that command contains a placeholder; else empty.
std::string openingCaveat(const Firewall& firewall);

}  // namespace glintboard::phone
