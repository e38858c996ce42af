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

// An open connection. Every call returns or fails by its deadline; all belong to one thread. Pings
// of the agent's are answered while a call runs. After a PhoneFailure only destruction is left.
class PhoneConnection {
 public:
  // Connects and upgrades, presenting `token` where there is one. Throws PhoneFailure.
  PhoneConnection(const AgentAddress& address, const std::optional<std::string>& token,
                  Deadline deadline);
  PhoneConnection(PhoneConnection&&) noexcept;
  // Says good-bye, waiting half a second at most.
  ~PhoneConnection();

  // Sends one text frame. Throws PhoneFailure.
  void send(std::string text, Deadline deadline);
  // The next message, or none when there is none by the deadline; it can then still be received
  // by another call. Throws PhoneFailure when the connection is lost.
  std::optional<std::string> receive(Deadline deadline);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace glintboard::phone
