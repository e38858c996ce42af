// SPDX-License-Identifier: MIT
// What the network looks like from this computer.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glintboard {

struct LocalAddress {
  std::string interface;
  std::string address;  // numeric, with a scope where the address needs one
  bool loopback = false;
};

// Who listens on a port. The process is 0 and the program empty where the system does not tell: the
// process is another user's.
struct PortHolder {
  int process = 0;
  std::string program;  // the file's name
};

// What comes in there: packets of a protocol, "tcp" or "udp", for a port.
struct PortRule {
  std::string protocol;
  std::uint16_t port = 0;
};

struct Firewall {
  // What looks after the rules for incoming packets: one that is on, else the kernel's own.
  enum class Kind { ufw, firewalld, nftables };
  Kind kind = Kind::nftables;
  // Whether it has been told what the agent needs, under the name "glintboard-agent".
  bool knowsAgent = false;
  // Of nftables: family, table and name of the chain in the way; empty where that is not known.
  std::string chain;
};

// Facts read from the system at each call; none throws, none waits for the network.
class LocalNetwork {
 public:
  virtual ~LocalNetwork() = default;
  // Those of interfaces that are up and have their cable or network, IPv4 first.
  virtual std::vector<LocalAddress> addresses() = 0;
  // None where nobody listens on that TCP port.
  virtual std::optional<PortHolder> holder(std::uint16_t port) = 0;
  // The one that may keep others from the gate. None where there is none, or where it was seen to
  // let everybody in, for which root sees more than others. Asks programs, for seconds at most.
  virtual std::optional<Firewall> firewall(const PortRule& gate) = 0;
  // Whether a program of that name is installed.
  virtual bool hasProgram(const std::string& name) = 0;

  static std::unique_ptr<LocalNetwork> live();
};

}  // namespace glintboard
