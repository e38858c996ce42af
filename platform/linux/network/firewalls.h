// SPDX-License-Identifier: MIT
// What the rules of firewalls do with incoming packets.
#pragma once

#include <optional>
#include <string>

#include "platform/local_network.h"

namespace glintboard {

// Whether ufw is enabled. Reads a file.
bool ufwIsOn();
// Whether ufw is known to accept these packets from everywhere. Only root can read its rules.
bool ufwAdmits(const PortRule& wanted);
// The same for firewalld's default zone. Blocks for up to four seconds.
bool firewalldAdmits(const PortRule& wanted);
// The rules in the kernel, if they may block these packets. Rules that cannot be read may. Blocks
// for up to two seconds.
std::optional<Firewall> packetFilter(const PortRule& wanted);

// The first chain for incoming packets, as "FAMILY TABLE NAME", that is not known to accept these
// packets from everywhere; none if all chains accept them. `ruleset` is the output of
// `nft list ruleset`.
std::optional<std::string> chainInTheWay(const std::string& ruleset, const PortRule& wanted);

}  // namespace glintboard
