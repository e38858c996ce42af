// SPDX-License-Identifier: MIT
// What firewalls do to packets that come in, as far as they tell.
#pragma once

#include <optional>
#include <string>

#include "platform/local_network.h"

namespace glintboard {

bool ufwIsOn();
// Whether it was seen to let everybody through the gate. Its rules are for root to read.
bool ufwAdmits(const PortRule& gate);
// The same of firewalld's default zone.
bool firewalldAdmits(const PortRule& gate);
// The kernel's own rules, if they may keep others from the gate. Those that cannot be read may.
std::optional<Firewall> packetFilter(const PortRule& gate);

// The first chain for incoming packets, as "FAMILY TABLE NAME", which does not clearly let
// everybody through the gate; none if all do. `ruleset` is what `nft list ruleset` prints.
std::optional<std::string> chainInTheWay(const std::string& ruleset, const PortRule& gate);

}  // namespace glintboard
