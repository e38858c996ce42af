// SPDX-License-Identifier: MIT
// WebSockets, wrapped once: the rest of the agent never sees the library behind them.
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "agent/connection/connection_bounds.h"
#include "platform/asio.h"
#include "protocol/web_socket_auth.h"

namespace glintboard {

// The headers of the upgrade that made a connection, and where it came from.
struct HandshakeHeaderCapture {
  HeaderList headers;
  std::string peer;  // address and port, as text for the log
};

// One upgraded connection. Everything happens on the service loop. Pings are answered by itself; a
// peer that vanished is noticed within 30 seconds, one that takes no byte for 60 seconds is closed.
class WebSocketConnection {
 public:
  virtual ~WebSocketConnection() = default;

  virtual const HandshakeHeaderCapture& handshake() const = 0;
  // The next complete message, text or binary; none when the connection has ended. What was queued
  // is sent before this waits. One caller at a time.
  virtual Awaitable<std::optional<std::string>> receive() = 0;
  // The same without waiting; none when nothing complete has come.
  virtual std::optional<std::string> received() = 0;
  // Queues a text, in order, for the next flush. Waits while the queue is full, and gives up when
  // the connection has ended.
  virtual Awaitable<> send(std::string text) = 0;
  // The same without waiting; false when the queue is full.
  virtual bool sendNow(std::string_view text) = 0;
  // Sends what is queued, in one write. To be called before anything that may take time.
  virtual void flush() = 0;
  // Sends a text when the queue allows. A push that is still waiting is replaced by a later one.
  virtual void push(std::shared_ptr<const std::string> text) = 0;
  // Whether a paired phone is at the other end, which nobody is taken for until this says so. Only
  // such a one may send long messages and leave many replies unread, and is never ended for others.
  virtual void setPaired(bool paired) = 0;
  // Asks for a sign of life at once; a peer that is silent for six seconds more is gone. For when
  // time has passed that no clock told of.
  virtual void probe() = 0;
  // Ends the connection: at once, without a closing handshake.
  virtual void cancel() = 0;
};

using TcpSocket = asio::basic_stream_socket<asio::ip::tcp, asio::any_io_executor>;

// A connection whose upgrade is still to come.
class AcceptedConnection : public WebSocketConnection {
 public:
  // Answers the upgrade request, for which there are ten seconds. False when it was none.
  virtual Awaitable<bool> upgrade() = 0;
};

// Takes over an accepted socket, in its place among the others.
std::shared_ptr<AcceptedConnection> acceptConnection(
    TcpSocket socket, std::unique_ptr<ConnectionBounds::Place> place);

}  // namespace glintboard
