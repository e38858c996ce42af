// SPDX-License-Identifier: MIT
// Service discovery on the local network.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glintboard {

struct BonjourService {
  // Any text; what the network needs shortened is shortened for the network only.
  std::string name;
  std::string type;    // "_name._tcp"
  std::string domain;  // "local."
  std::uint16_t port = 0;
};

// Advertises one service. Without a discovery daemon nothing is advertised, which is no error; one
// that comes later is joined. Any thread; the calls do not block.
class BonjourAdvertiser {
 public:
  virtual ~BonjourAdvertiser() = default;
  virtual void publish(const BonjourService& service) = 0;
  virtual void withdraw() = 0;
};

struct BonjourInstance {
  std::string name;
  std::string address;  // numeric, with a scope where the address needs one; empty if not resolved
  std::uint16_t port = 0;
  bool isOwn = false;  // advertised by this computer
};

class BonjourBrowser {
 public:
  virtual ~BonjourBrowser() = default;
  // The instances of `type` found within `timeout`, those that tell no address last; blocks until
  // the daemon has told all it knows or the time is up. None without a daemon that answers.
  virtual std::optional<std::vector<BonjourInstance>> browse(const std::string& type,
                                                             std::chrono::milliseconds timeout) = 0;

  static std::unique_ptr<BonjourBrowser> live();
};

}  // namespace glintboard
