// SPDX-License-Identifier: MIT
// Limits on the number of connections.
#pragma once

#include <array>
#include <boost/asio/ip/address.hpp>
#include <functional>
#include <list>
#include <memory>

#include "platform/asio.h"

namespace glintboard {

// `waiting`: for the upgrade.
enum class ConnectionKind { waiting, unpaired, paired };

struct ConnectionLimits {
  std::size_t waiting = 128;
  std::size_t unpaired = 128;
  std::size_t paired = 1536;
  // All kinds together, including ended connections that are not destroyed yet.
  std::size_t total = 2048;

  // The limits of a process that may open that many descriptors. Some of them are reserved for the
  // rest of the agent.
  static ConnectionLimits forDescriptors(std::size_t descriptors);
};

// Keeps each kind of connection within its limit. Above the limit, the peer with the most
// connections of that kind loses the one that has been silent longest. A stranger thus displaces
// other strangers at most, and never a paired phone.
//
// Used on one executor; held by a shared_ptr.
class ConnectionBounds : public std::enable_shared_from_this<ConnectionBounds> {
 public:
  class Ticket;

  explicit ConnectionBounds(const ConnectionLimits& limits)
      : limits_{limits.waiting, limits.unpaired, limits.paired}, totalLimit_(limits.total) {}

  // A ticket for a connection that was accepted from `peer`; null when the total limit is reached.
  std::unique_ptr<Ticket> enter(const asio::ip::address& peer);
  // The number of ended connections that are not destroyed yet.
  std::size_t ending() const;
  // Ends one connection that is not paired, if there is one, to free its descriptor.
  void makeRoom();

 private:
  using Tickets = std::list<Ticket*>;  // the longest silent first

  Tickets& of(ConnectionKind kind) { return tickets_[static_cast<std::size_t>(kind)]; }
  std::size_t limitOf(ConnectionKind kind) const { return limits_[static_cast<std::size_t>(kind)]; }
  void keepWithin(ConnectionKind kind, std::size_t limit);

  // Indexed by kind.
  const std::array<std::size_t, 3> limits_;
  std::array<Tickets, 3> tickets_;
  const std::size_t totalLimit_;
  std::size_t total_ = 0;
};

// A connection's entry in the bounds, held by the connection as long as it lives.
class ConnectionBounds::Ticket {
 public:
  Ticket(std::shared_ptr<ConnectionBounds> bounds, const asio::ip::address& peer);
  Ticket(const Ticket&) = delete;
  Ticket& operator=(const Ticket&) = delete;
  ~Ticket();

  // Sets the function that ends the connection. It must not destroy the ticket before it returns.
  void whenOut(std::function<void()> end) { end_ = std::move(end); }
  void become(ConnectionKind kind);
  // Marks the connection as active now.
  void touch();

 private:
  friend ConnectionBounds;
  void leave();

  std::shared_ptr<ConnectionBounds> bounds_;
  asio::ip::address peer_;
  std::function<void()> end_;
  ConnectionKind kind_ = ConnectionKind::waiting;
  bool out_ = false;
  Tickets::iterator position_;
};

}  // namespace glintboard
