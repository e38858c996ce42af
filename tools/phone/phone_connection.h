// SPDX-License-Identifier: MIT
// The WebSocket to the agent.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "tools/phone/arguments.h"

namespace glintboard::phone {

using Deadline = std::chrono::steady_clock::time_point;

// An open connection, used by one thread. Every call blocks until its deadline at most. Ping frames
// of the agent are answered only while a call runs. After a PhoneFailure the connection can only be
// destroyed.
class PhoneConnection {
 public:
  // Connects and upgrades, with `token` in its header if there is one. Throws PhoneFailure.
  PhoneConnection(const AgentAddress& address, const std::optional<std::string>& token,
                  Deadline deadline);
  PhoneConnection(PhoneConnection&&) noexcept;
  // Performs the closing handshake, waiting half a second at most.
  ~PhoneConnection();

  // Sends one text frame. Throws PhoneFailure.
  void send(std::string text, Deadline deadline);
  // The next message; none if there is none by the deadline, and a later call can still receive it.
  // Throws PhoneFailure if the connection is lost.
  std::optional<std::string> receive(Deadline deadline);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace glintboard::phone
