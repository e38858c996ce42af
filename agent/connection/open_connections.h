// SPDX-License-Identifier: MIT
// The set of open connections.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "agent/connection/web_socket_connection.h"

namespace glintboard {

// Every open connection with the token that it presented. Connections whose token names a paired
// device are the targets of pushes. Used on one serial executor, unless noted.
class OpenConnections {
 public:
  using Connection = std::shared_ptr<WebSocketConnection>;
  struct Parts {
    // Whether the token names a paired device. False while that is not known yet.
    std::function<bool(std::string_view token)> isPaired;
    // Called when the number of connections of paired devices changes.
    std::function<void(std::size_t count)> pairedChanged;
    // Called when `hasPushes` changes.
    std::function<void()> hasPushesChanged;
  };

  explicit OpenConnections(Parts parts) : parts_(std::move(parts)) {}

  void add(const Connection& connection, const std::optional<std::string>& token);
  void remove(const Connection& connection);
  // Looks up the token of every connection again. To be called after each change of the list of
  // paired devices.
  void update();
  // Excludes the present connections from pushes; connections added later receive them.
  void endPushes();

  // Whether a push has a target. Any thread.
  bool hasPushes() const { return hasPushes_; }
  void push(const std::shared_ptr<const std::string>& text) const;
  // Probes every connection.
  void probe() const;
  // Ends and removes every connection.
  void cancelAll();

 private:
  struct Entry {
    Connection connection;
    std::string token;
    bool isPaired = false;
    bool receivesPushes = true;
  };

  void updatePaired(Entry& entry) const;
  // Reports what has changed since the last call.
  void reportChanges();

  Parts parts_;
  std::map<WebSocketConnection*, Entry> all_;
  std::size_t paired_ = 0;
  std::atomic<bool> hasPushes_ = false;
};

}  // namespace glintboard
