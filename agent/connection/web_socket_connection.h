// SPDX-License-Identifier: MIT
// One WebSocket connection, server side.
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

// The headers of the upgrade request, and the peer that sent it.
struct HandshakeHeaderCapture {
  HeaderList headers;
  std::string peer;  // address and port, as text for the log
};

// One upgraded connection. Used on the service loop only. It answers pings itself. A peer that has
// vanished is detected within 30 seconds; a peer that reads no byte for 60 seconds is disconnected.
class WebSocketConnection {
 public:
  virtual ~WebSocketConnection() = default;

  virtual const HandshakeHeaderCapture& handshake() const = 0;
  // The next complete message, text or binary; none when the connection has ended. Sends the queue
  // before it waits for the peer. One caller at a time.
  virtual Awaitable<std::optional<std::string>> receive() = 0;
  // The same without waiting; none when no complete message has been received.
  virtual std::optional<std::string> received() = 0;
  // Queues a text, in order, for the next flush. Waits while the queue is full; drops the text when
  // the connection has ended.
  virtual Awaitable<> send(std::string text) = 0;
  // Sends the queue in one write. To be called before a wait for anything but the connection.
  virtual void flush() = 0;
  // Sends a text once the queue is empty. A push that is still waiting is replaced by a later one.
  virtual void push(std::shared_ptr<const std::string> text) = 0;
  // Whether the peer is a paired phone. Connections start unpaired. A paired connection has higher
  // limits on its messages and its queue, and is never ended to make room for others.
  virtual void setPaired(bool paired) = 0;
  // Pings the peer now, and ends the connection if nothing is received within six seconds. For use
  // after the computer has slept.
  virtual void probe() = 0;
  // Ends the connection immediately, without a closing handshake.
  virtual void cancel() = 0;
};

using TcpSocket = asio::basic_stream_socket<asio::ip::tcp, asio::any_io_executor>;

// A connection before its upgrade.
class AcceptedConnection : public WebSocketConnection {
 public:
  // Answers the upgrade request. False when none is received within ten seconds, or it is refused.
  virtual Awaitable<bool> upgrade() = 0;
};

// Takes over an accepted socket. The connection holds its ticket as long as it lives.
std::shared_ptr<AcceptedConnection> acceptConnection(
    TcpSocket socket, std::unique_ptr<ConnectionBounds::Ticket> ticket);

}  // namespace glintboard
