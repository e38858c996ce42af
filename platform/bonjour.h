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
  // Any text. It is truncated to the network's limit when it is advertised.
  std::string name;
  std::string type;    // "_name._tcp"
  std::string domain;  // "local."
  std::uint16_t port = 0;
};

// Advertises one service. A missing discovery daemon is not an error: the service is advertised
// once a daemon runs. Any thread; does not block.
class BonjourAdvertiser {
 public:
  virtual ~BonjourAdvertiser() = default;
  // Advertises `service` in place of an earlier one.
  virtual void publish(const BonjourService& service) = 0;
  // Ends the advertisement.
  virtual void withdraw() = 0;
};

// One advertised service as a browser finds it.
struct BonjourInstance {
  std::string name;
  std::string address;  // numeric, with a scope where the address needs one; empty if not resolved
  std::uint16_t port = 0;
  bool isOwn = false;  // advertised by this computer
};

class BonjourBrowser {
 public:
  virtual ~BonjourBrowser() = default;
  // The instances of `type` found within `timeout`, unresolved ones last. Blocks until the daemon
  // has reported all instances it knows, or until the timeout. None when no daemon answers.
  virtual std::optional<std::vector<BonjourInstance>> browse(const std::string& type,
                                                             std::chrono::milliseconds timeout) = 0;

  // The browser of this desktop.
  static std::unique_ptr<BonjourBrowser> live();
};

}  // namespace glintboard
