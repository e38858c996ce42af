// SPDX-License-Identifier: MIT
// Reports when the session's Secret Service may answer what it could not before.
#pragma once

#include <functional>
#include <memory>

#include "platform/linux/base/desktop_bus.h"

namespace glintboard {

// Follows the service's signals: it appears, or something in it is unlocked, made or changed. A
// service that does not answer is asked once and reported when it does, however late. Where there
// is no bus, waits for one.
class SecretServiceWatch {
 public:
  // `readable` is called on the watch's own thread, for the first time when the service answers the
  // first question. Not called any more once this has ended.
  explicit SecretServiceWatch(std::function<void()> readable);

  // Asks the service again, which had not answered in time. Any thread.
  void ask();

 private:
  class Client;
  const std::shared_ptr<Client> client_;
  DesktopBus bus_;
};

}  // namespace glintboard
