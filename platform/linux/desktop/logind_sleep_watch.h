// SPDX-License-Identifier: MIT
// Reports sleep with logind's signals.
#pragma once

#include "platform/linux/base/desktop_bus.h"
#include "platform/sleep_watch.h"

namespace glintboard {

// Connects to the system bus on a thread of its own.
class LogindSleepWatch : public SleepWatch {
 public:
  void start(std::function<void()> woken) override;

 private:
  DesktopBus bus_{systemBusAddress};
};

}  // namespace glintboard
