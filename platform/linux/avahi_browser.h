// Looking for services through the Avahi daemon.
#pragma once

#include "platform/bonjour.h"

namespace glintboard {

// IPv4 addresses come first; a link-local IPv6 address has its interface as scope. A daemon that
// hangs may hold a call up beyond its time, by libdbus's own 25 s.
class AvahiBrowser : public BonjourBrowser {
 public:
  std::vector<BonjourInstance> browse(const std::string& type,
                                      std::chrono::milliseconds timeout) override;
};

}  // namespace glintboard
