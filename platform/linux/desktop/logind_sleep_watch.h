// SPDX-License-Identifier: MIT
// Sleep, as logind tells of it.
#pragma once

#include "platform/linux/base/desktop_bus.h"
#include "platform/sleep_watch.h"

namespace glintboard {

class LogindSleepWatch : public SleepWatch {
 public:
  void start(std::function<void()> woken) override;

 private:
  DesktopBus bus_{systemBusAddress};
};

}  // namespace glintboard
