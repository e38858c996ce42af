// SPDX-License-Identifier: MIT
// Looking for services through the Avahi daemon.
#pragma once

#include "platform/bonjour.h"

namespace glintboard {

// IPv4 addresses come before others; a link-local IPv6 address has its interface as scope.
class AvahiBrowser : public BonjourBrowser {
 public:
  std::optional<std::vector<BonjourInstance>> browse(const std::string& type,
                                                     std::chrono::milliseconds timeout) override;
};

}  // namespace glintboard
