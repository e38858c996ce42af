// SPDX-License-Identifier: MIT
// One WebSocket connection, server side.
#pragma once

#include <array>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "agent/connection/connection_bounds.h"
#include "agent/connection/web_socket_frames.h"
#include "platform/asio.h"
#include "protocol/web_socket_auth.h"

namespace glintboard {

// The headers of the upgrade request, and the peer that sent it.
struct HandshakeHeaderCapture {
  HeaderList headers;
  std::string peer;  // address and port, as text for the log
};

using TcpSocket = asio::basic_stream_socket<asio::ip::tcp, asio::any_io_executor>;

// One accepted connection, which carries messages once it is upgraded. Used on the service loop
// only. It answers pings itself. A peer that has vanished is detected within 30 seconds; a peer
// that reads no byte for 60 seconds is disconnected.
//
// Beast parses the upgrade request. Frames are handled here: a message costs no turns of the loop
// beyond those of the socket, and the replies to pipelined messages leave in one write.
class WebSocketConnection : public std::enable_shared_from_this<WebSocketConnection> {
 public:
  // Takes over an accepted socket. Holds the ticket as long as it lives. Owned by a shared_ptr.
  WebSocketConnection(TcpSocket socket, std::unique_ptr<ConnectionBounds::Ticket> ticket);

  // Answers the upgrade request. False when none is received within ten seconds, or it is refused.
  // The other functions are for an upgraded connection.
  Awaitable<bool> upgrade();
  const HandshakeHeaderCapture& handshake() const { return handshake_; }

  // The next complete message, text or binary; none when the connection has ended. Sends the queue
  // before it waits for the peer. One caller at a time.
  Awaitable<std::optional<std::string>> receive();
  // The same without waiting; none when no complete message has been received.
  std::optional<std::string> received();
  // Queues a text, in order, for the next flush. Waits while the queue is full; drops the text when
  // the connection has ended.
  Awaitable<> send(std::string text);
  // Sends the queue in one write. To be called before a wait for anything but the connection.
  void flush();
  // Sends a text once the queue is empty. A push that is still waiting is replaced by a later one.
  void push(std::shared_ptr<const std::string> text);
  // Whether the peer is a paired phone. Connections start unpaired. A paired connection has higher
  // limits on its messages and its queue, and is never ended to make room for others.
  void setPaired(bool paired);
  // Pings the peer now, and ends the connection if nothing is received within six seconds. For use
  // after the computer has slept.
  void probe();
  // Ends the connection immediately, without a closing handshake.
  void cancel();

 private:
  using Clock = std::chrono::steady_clock;

  // Limits on the bytes that a connection holds.
  struct Allowance {
    std::size_t incomingMessage;
    std::size_t queued;  // beyond what is being written
  };
  static constexpr Allowance pairedAllowance{1 << 20, 4 << 20};
  static constexpr Allowance strangersAllowance{16 << 10, 64 << 10};

  bool isFull() const;
  // Resumes when the queue is not full or the connection has ended.
  Awaitable<> room();
  // Fills `sending_` unless it still has unsent bytes: with the queue, or with the push when the
  // queue is empty. False when there is nothing to send.
  bool fillSending();
  void took(std::size_t count);
  // Resumes sending when the socket is writable.
  void waitForPeer();
  // The closing handshake. Input is read and dropped until the peer closes: a socket closed with
  // unread input is reset, and the peer would lose the close frame.
  void close(WebSocketFrames::CloseCode code);
  // Pings a silent peer, and ends the connection of a peer that has vanished or does not read.
  // Silence only counts during a read.
  static Awaitable<> watch(std::shared_ptr<WebSocketConnection> self);
  void check(Clock::time_point now);
  // False when no ping can be sent now.
  bool ping();

  std::unique_ptr<ConnectionBounds::Ticket> ticket_;
  TcpSocket socket_;
  HandshakeHeaderCapture handshake_;
  std::array<char, 8 << 10> input_;
  Allowance allowance_ = strangersAllowance;
  WebSocketFrames::Reader reader_{allowance_.incomingMessage};
  std::string gathered_;  // the queue, sent after `sending_`
  std::string sending_;
  std::size_t sent_ = 0;  // of `sending_`
  std::shared_ptr<const std::string> waitingPush_;
  asio::steady_timer queueMoved_;
  asio::steady_timer watchTimer_;
  std::optional<Clock::time_point> probedAt_;  // while a probe is pending
  Clock::time_point heardOf_ = Clock::now();
  Clock::time_point takenAt_ = Clock::now();
  bool reading_ = false;
  bool writing_ = false;  // waits until the socket is writable
  bool closing_ = false;  // the close frame was queued
  bool ended_ = false;
};

}  // namespace glintboard
