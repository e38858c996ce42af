// SPDX-License-Identifier: MIT
// The network as the kernel tells it.
#pragma once

#include "platform/local_network.h"

namespace glintboard {

class LinuxLocalNetwork : public LocalNetwork {
 public:
  std::vector<LocalAddress> addresses() override;
  std::optional<PortHolder> holder(std::uint16_t port) override;
  std::optional<Firewall> firewall(const PortRule& gate) override;
  bool hasProgram(const std::string& name) override;
};

}  // namespace glintboard
