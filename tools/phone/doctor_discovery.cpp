// SPDX-License-Identifier: MIT
#include <algorithm>

#include "protocol/glintboard_service.h"
#include "tools/phone/doctor.h"

namespace glintboard::phone {
namespace {

using Instances = std::vector<BonjourInstance>;

// `name` without the suffix " #2" that Avahi adds if the name is taken.
std::string originalName(const std::string& name) {
  const auto number = name.rfind(" #");
  return number == std::string::npos ? name : name.substr(0, number);
}

// The advertisements of this computer's agent, and those of others.
struct Found {
  Instances own;
  Instances others;
};

Found sorted(const Instances& found) {
  Found result;
  for (const auto& instance : found) {
    (instance.isOwn ? result.own : result.others).push_back(instance);
  }
  return result;
}

Finding examineAvahi(bool answers, LocalNetwork& network) {
  if (answers) {
    return {"avahi", "Avahi is running.", {}, {}};
  }
  return {"avahi",
          "Avahi does not answer, so that no phone finds this computer by itself. Start it:",
          "no_avahi",
          network.hasProgram("avahi-daemon") ? "sudo systemctl enable --now avahi-daemon"
                                             : "sudo apt install avahi-daemon",
          ExitCode::unreachable};
}

Finding examineAdvertisement(const Instances& own, LocalNetwork& network,
                             const std::vector<LocalAddress>& addresses) {
  const bool isOnNetwork = !std::ranges::all_of(addresses, &LocalAddress::loopback);
  std::string listed;
  for (const auto& instance : own) {
    const auto at = std::ranges::find(addresses, instance.address, &LocalAddress::address);
    if (at != addresses.end() && !(isOnNetwork && at->loopback)) {
      listed += (listed.empty() ? "" : ", ") + instance.address;
    }
  }
  if (!listed.empty()) {
    return {
        "advertisement", "Advertised as \"" + own.front().name + "\" at " + listed + ".", {}, {}};
  }
  if (own.empty()) {
    return {"advertisement",
            "Avahi advertises no agent of this computer. Unless /etc/avahi/avahi-daemon.conf says "
            "disable-publishing or disable-user-service-publishing, restarting the agent fixes it:",
            "not_advertised", "glintboard-agent", ExitCode::unreachable};
  }
  if (std::ranges::any_of(own, [](const auto& found) { return found.address.empty(); })) {
    return {"advertisement",
            "Avahi advertises \"" + own.front().name +
                "\", but does not resolve it to an address. Unless "
                "/etc/avahi/avahi-daemon.conf says publish-addresses=no, start Avahi anew:",
            "not_resolved", "sudo systemctl restart avahi-daemon", ExitCode::unreachable};
  }
  const Firewall firewall = network.firewall(discoveryPortRule()).value_or(Firewall());
  return {"advertisement",
          "The advertisement does not reach the network: a firewall drops mDNS (UDP port 5353), or "
          "/etc/avahi/avahi-daemon.conf leaves the network out. For the firewall" +
              openingCaveat(firewall) + ":",
          "not_advertised", openingCommand(firewall, discoveryPortRule()), ExitCode::unreachable};
}

Finding examineName(const Found& found) {
  for (const auto& own : found.own) {
    for (const auto& other : found.others) {
      if (other.name == own.name || other.name == originalName(own.name)) {
        return {"name",
                "Another agent, at " + other.address + ", is called \"" + other.name +
                    "\" too, and a phone may take it for this one. Give this computer a name of "
                    "its own:",
                "name_collision", "sudo hostnamectl set-hostname NAME", ExitCode::unreachable};
      }
    }
  }
  return {"name", "No other agent has that name.", {}, {}};
}

}  // namespace

std::vector<Finding> examineDiscovery(BonjourBrowser& browser, LocalNetwork& network,
                                      const std::vector<LocalAddress>& addresses, bool isServed,
                                      std::chrono::milliseconds timeout) {
  const auto found = browser.browse(std::string(GlintboardService::bonjourType), timeout);
  std::vector<Finding> findings{examineAvahi(found.has_value(), network)};
  if (found && isServed) {
    const Found mine = sorted(*found);
    findings.push_back(examineAdvertisement(mine.own, network, addresses));
    if (!mine.own.empty()) {
      findings.push_back(examineName(mine));
    }
  }
  return findings;
}

}  // namespace glintboard::phone
