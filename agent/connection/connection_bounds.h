// SPDX-License-Identifier: MIT
// How many connections there may be, and which of them go when there are more.
#pragma once

#include <array>
#include <boost/asio/ip/address.hpp>
#include <functional>
#include <list>
#include <memory>

#include "platform/asio.h"

namespace glintboard {

// What is known of whoever is at the other end.
enum class ConnectionKind { waiting, unpaired, paired };  // `waiting`: for the upgrade

struct ConnectionLimits {
  std::size_t waiting = 128;
  std::size_t unpaired = 128;
  std::size_t paired = 1536;
  // Of every kind, those included that have been ended and not let go yet.
  std::size_t total = 2048;

  // The limits of a process that may open that many descriptors, some of which are for the rest of
  // the agent.
  static ConnectionLimits forDescriptors(std::size_t descriptors);
};

// Keeps each kind of connection within its limit: of too many, the one that has been silent longest
// is ended, out of those of the peer that has most. So a stranger's connections cost another
// stranger's at most, and those of a paired phone never.
//
// Touched on one executor; held by a shared_ptr.
class ConnectionBounds : public std::enable_shared_from_this<ConnectionBounds> {
 public:
  class Place;

  explicit ConnectionBounds(const ConnectionLimits& limits)
      : limits_{limits.waiting, limits.unpaired, limits.paired}, totalLimit_(limits.total) {}

  // A place for a connection that was accepted from `peer`; none when there are too many in all.
  std::unique_ptr<Place> enter(const asio::ip::address& peer);
  // How many connections have been ended and not let go yet.
  std::size_t ending() const;
  // Ends one connection that is not a paired phone's, if there is any: to get its descriptor back.
  void makeRoom();

 private:
  using Places = std::list<Place*>;  // the one that has been silent longest first

  Places& of(ConnectionKind kind) { return places_[static_cast<std::size_t>(kind)]; }
  std::size_t limitOf(ConnectionKind kind) const { return limits_[static_cast<std::size_t>(kind)]; }
  void keepWithin(ConnectionKind kind, std::size_t limit);

  // By kind.
  const std::array<std::size_t, 3> limits_;
  std::array<Places, 3> places_;
  const std::size_t totalLimit_;
  std::size_t total_ = 0;
};

// What a connection holds for as long as it lives.
class ConnectionBounds::Place {
 public:
  Place(std::shared_ptr<ConnectionBounds> bounds, const asio::ip::address& peer);
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;
  ~Place();

  // What ends the connection; it must not destroy the place before it returns.
  void whenOut(std::function<void()> end) { end_ = std::move(end); }
  void become(ConnectionKind kind);
  // The connection was heard of.
  void touch();

 private:
  friend ConnectionBounds;
  void leave();

  std::shared_ptr<ConnectionBounds> bounds_;
  asio::ip::address peer_;
  std::function<void()> end_;
  ConnectionKind kind_ = ConnectionKind::waiting;
  bool out_ = false;
  Places::iterator position_;
};

}  // namespace glintboard
