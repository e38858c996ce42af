// SPDX-License-Identifier: MIT
// This computer's network addresses, listening ports and firewall.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glintboard {

// An address of a network interface.
struct LocalAddress {
  std::string interface;
  std::string address;  // numeric, with a scope where the address needs one
  bool loopback = false;
};

// The process that listens on a port. 0 and empty for a process of another user, which only root
// can identify.
struct PortHolder {
  int process = 0;
  std::string program;  // file name
};

// Incoming packets of a protocol, "tcp" or "udp", to a port.
struct PortRule {
  std::string protocol;
  std::uint16_t port = 0;
};

// What manages the rules for incoming packets.
struct Firewall {
  // An active firewall service, else `nftables` for the rules in the kernel.
  enum class Kind { ufw, firewalld, nftables };
  Kind kind = Kind::nftables;
  // Whether the profile "glintboard-agent" is installed for the firewall service.
  bool knowsAgent = false;
  // For nftables: family, table and name of the chain that may block; empty if unknown.
  std::string chain;
};

// Reads the system at each call. Nothing throws, and nothing waits for the network.
class LocalNetwork {
 public:
  virtual ~LocalNetwork() = default;
  // The addresses of all interfaces that are up and connected, IPv4 first.
  virtual std::vector<LocalAddress> addresses() = 0;
  // The listener on a TCP port, or none.
  virtual std::optional<PortHolder> holder(std::uint16_t port) = 0;
  // The firewall that may block these packets. None without a firewall, and when its rules are
  // known to accept them; root can read more rules than other users. Runs programs for up to four
  // seconds.
  virtual std::optional<Firewall> firewall(const PortRule& wanted) = 0;
  // Whether a program of that name is installed.
  virtual bool hasProgram(const std::string& name) = 0;

  // The network of this computer.
  static std::unique_ptr<LocalNetwork> live();
};

}  // namespace glintboard
