// SPDX-License-Identifier: MIT
#include "agent/connection/connection_bounds.h"

#include <algorithm>
#include <map>

namespace glintboard {
namespace {

// The address that connections are counted by. A host can use every address of its IPv6 network, so
// the network counts; link-local addresses share one network, so there the address counts.
asio::ip::address peerOf(const asio::ip::address& address) {
  if (!address.is_v6()) {
    return address;
  }
  const auto v6 = address.to_v6();
  if (v6.is_v4_mapped()) {
    return asio::ip::make_address_v4(asio::ip::v4_mapped, v6);
  }
  if (v6.is_link_local()) {
    return v6;
  }
  auto bytes = v6.to_bytes();
  std::fill(bytes.begin() + 8, bytes.end(), std::uint8_t{0});
  return asio::ip::address_v6(bytes);
}

}  // namespace

ConnectionLimits ConnectionLimits::forDescriptors(std::size_t descriptors) {
  constexpr std::size_t reserved = 256;
  ConnectionLimits limits;
  limits.total = std::min(limits.total, descriptors - std::min(reserved, descriptors / 2));
  const std::size_t eighth = std::max<std::size_t>(limits.total / 8, 1);
  limits.waiting = std::min(limits.waiting, eighth);
  limits.unpaired = std::min(limits.unpaired, eighth);
  limits.paired = std::min(limits.paired, limits.total - std::min(limits.total, 3 * eighth));
  return limits;
}

std::unique_ptr<ConnectionBounds::Ticket> ConnectionBounds::enter(const asio::ip::address& peer) {
  if (total_ >= totalLimit_) {
    return nullptr;
  }
  auto ticket = std::make_unique<Ticket>(shared_from_this(), peer);
  keepWithin(ConnectionKind::waiting, limitOf(ConnectionKind::waiting));
  return ticket;
}

std::size_t ConnectionBounds::ending() const {
  return total_ - tickets_[0].size() - tickets_[1].size() - tickets_[2].size();
}

void ConnectionBounds::makeRoom() {
  for (const auto kind : {ConnectionKind::waiting, ConnectionKind::unpaired}) {
    if (const auto count = of(kind).size(); count > 0) {
      keepWithin(kind, count - 1);
      return;
    }
  }
}

void ConnectionBounds::keepWithin(ConnectionKind kind, std::size_t limit) {
  while (of(kind).size() > limit) {
    std::map<asio::ip::address, std::size_t> counts;
    for (const Ticket* ticket : of(kind)) {
      ++counts[ticket->peer_];
    }
    // Of equal counts, max_element gives the first, which has been silent longest.
    Ticket& last = **std::ranges::max_element(
        of(kind), {}, [&](const Ticket* ticket) { return counts[ticket->peer_]; });
    last.leave();
    if (last.end_) {
      last.end_();
    }
  }
}

ConnectionBounds::Ticket::Ticket(std::shared_ptr<ConnectionBounds> bounds,
                                 const asio::ip::address& peer)
    : bounds_(std::move(bounds)), peer_(peerOf(peer)) {
  auto& tickets = bounds_->of(kind_);
  position_ = tickets.insert(tickets.end(), this);
  ++bounds_->total_;
}

ConnectionBounds::Ticket::~Ticket() {
  leave();
  --bounds_->total_;
}

void ConnectionBounds::Ticket::become(ConnectionKind kind) {
  if (out_ || kind == kind_) {
    return;
  }
  auto& tickets = bounds_->of(kind);
  tickets.splice(tickets.end(), bounds_->of(kind_), position_);
  kind_ = kind;
  bounds_->keepWithin(kind, bounds_->limitOf(kind));
}

void ConnectionBounds::Ticket::touch() {
  if (!out_) {
    auto& tickets = bounds_->of(kind_);
    tickets.splice(tickets.end(), tickets, position_);
  }
}

void ConnectionBounds::Ticket::leave() {
  if (!out_) {
    bounds_->of(kind_).erase(position_);
    out_ = true;
  }
}

}  // namespace glintboard
