// SPDX-License-Identifier: MIT
// The open connections, and whose they are.
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

// Every open connection with the token that it presented. Those whose token names a paired device
// may ask, and are pushed to. Belongs to one serial executor.
class OpenConnections {
 public:
  using Connection = std::shared_ptr<WebSocketConnection>;
  struct Parts {
    // Whether the token names a paired device, as far as is known at once.
    std::function<bool(std::string_view token)> isPaired;
    // Told whether a paired device is connected, when that changes.
    std::function<void(bool)> phoneMayAsk;
    // Told when the first is pushed to, and when the last is no more.
    std::function<void()> hasPushesChanged;
  };

  explicit OpenConnections(Parts parts) : parts_(std::move(parts)) {}

  void add(const Connection& connection, const std::optional<std::string>& token);
  void remove(const Connection& connection);
  // To be called whenever the list of paired devices has changed: sorts all connections anew.
  void update();
  // From now on pushes only go to connections that are added later.
  void endPushes();

  // How many are of paired devices.
  std::size_t paired() const { return paired_; }
  // Whether a push reaches anyone. Any thread.
  bool hasPushes() const { return hasPushes_; }
  void push(const std::shared_ptr<const std::string>& text) const;
  // Asks every connection for a sign of life.
  void probe() const;
  // Ends every connection and forgets it.
  void cancelAll();

 private:
  struct Entry {
    Connection connection;
    std::string token;
    bool isPaired = false;
    bool mayBePushedTo = true;
  };

  void sort(Entry& entry) const;
  void count();

  Parts parts_;
  std::map<WebSocketConnection*, Entry> all_;
  std::size_t paired_ = 0;
  std::atomic<bool> hasPushes_ = false;
};

}  // namespace glintboard
