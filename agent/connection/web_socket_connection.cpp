// SPDX-License-Identifier: MIT
#include "agent/connection/web_socket_connection.h"

#include <sys/socket.h>

#include <array>
#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <cerrno>

#include "agent/connection/web_socket_frames.h"
#include "agent/connection/web_socket_upgrade.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
namespace beast = boost::beast;
namespace http = beast::http;
using Clock = std::chrono::steady_clock;
using WebSocketFrames::Opcode;
using WebSocketFrames::Received;

// What may be on its way in and out of a connection.
struct Allowance {
  std::size_t incomingMessage;
  std::size_t queued;  // beyond what is being written
};
constexpr Allowance pairedAllowance{1 << 20, 4 << 20};
constexpr Allowance strangersAllowance{16 << 10, 64 << 10};

constexpr std::uint32_t maxUpgradeRequest = 16 << 10;
constexpr auto upgradeDeadline = 10s;
constexpr auto keepAliveInterval = 8s;
constexpr auto probeDeadline = 6s;
constexpr auto stoppedFor = 2s;      // a timer that is so late tells that the process was stopped
constexpr auto vanishedAfter = 21s;  // silence of a peer that is being listened to
constexpr auto stuckAfter = 60s;     // a write of which the peer takes nothing
constexpr std::size_t readAtOnce = 8 << 10;
constexpr std::size_t keptCapacity = 64 << 10;

HeaderList headersOf(const http::request<http::empty_body>& request) {
  HeaderList headers;
  for (const auto& field : request) {
    headers.emplace_back(field.name_string(), field.value());
  }
  return headers;
}

std::string peerOf(const TcpSocket& socket) {
  error_code ignored;
  const auto peer = socket.remote_endpoint(ignored);
  return peer.address().to_string() + " port " + std::to_string(peer.port());
}

// The library reads the request for the upgrade. The rest is handled here, so that a message costs
// no more turns of the loop than the socket itself, and so that many replies leave in one write.
class Connection : public AcceptedConnection, public std::enable_shared_from_this<Connection> {
 public:
  Connection(TcpSocket socket, std::unique_ptr<ConnectionBounds::Place> place)
      : place_(std::move(place)),
        socket_(std::move(socket)),
        queueMoved_(socket_.get_executor()),
        watchTimer_(socket_.get_executor()) {
    queueMoved_.expires_at(Clock::time_point::max());
    place_->whenOut([this] { cancel(); });
    handshake_.peer = peerOf(socket_);
  }

  Awaitable<bool> upgrade() override {
    auto self = shared_from_this();
    asio::steady_timer deadline(socket_.get_executor(), upgradeDeadline);
    deadline.async_wait([self](error_code error) {
      if (!error) {
        self->cancel();
      }
    });
    beast::flat_buffer buffer(maxUpgradeRequest);
    http::request_parser<http::empty_body> parser;
    parser.header_limit(maxUpgradeRequest);
    auto [readError, count] =
        co_await http::async_read(socket_, buffer, parser, asio::as_tuple(asio::use_awaitable));
    if (readError) {
      co_return false;
    }
    handshake_.headers = headersOf(parser.get());
    const auto answer = answerUpgrade(parser.get());
    auto [error, written] = co_await asio::async_write(socket_, asio::buffer(answer.text),
                                                       asio::as_tuple(asio::use_awaitable));
    if (error || !answer.accepted) {
      cancel();
      co_return false;
    }
    // Whoever is in a hurry sends frames right behind the request.
    reader_.add({static_cast<const char*>(buffer.data().data()), buffer.size()});
    place_->become(ConnectionKind::unpaired);
    spawn(socket_.get_executor(), watch(self), "connection watch");
    co_return true;
  }

  const HandshakeHeaderCapture& handshake() const override { return handshake_; }

  Awaitable<std::optional<std::string>> receive() override {
    auto self = shared_from_this();
    while (!ended_) {
      if (auto message = received()) {
        co_return message;
      }
      // Pings are answered in here, so this too waits for a peer that does not read.
      if (isFull()) {
        co_await room();
      }
      flush();
      if (ended_) {
        break;
      }
      heardOf_ = Clock::now();
      reading_ = true;
      auto [error, count] = co_await socket_.async_read_some(asio::buffer(input_),
                                                             asio::as_tuple(asio::use_awaitable));
      reading_ = false;
      if (error) {
        cancel();
      } else if (!closing_) {
        reader_.add({input_.data(), count});
      }
    }
    co_return std::nullopt;
  }

  std::optional<std::string> received() override {
    while (!ended_ && !closing_) {
      auto next = reader_.next();
      if (!next) {
        break;
      }
      switch (next->kind) {
        case Received::Kind::message:
          place_->touch();
          return std::move(next->data);
        case Received::Kind::ping:
          append(gathered_, Opcode::pong, next->data);
          break;
        case Received::Kind::pong:
          break;
        case Received::Kind::close:
          close(next->closeCode);
          break;
      }
    }
    return std::nullopt;
  }

  Awaitable<> send(std::string text) override {
    auto self = shared_from_this();
    if (isFull()) {
      co_await room();
    }
    sendNow(text);
  }

  bool sendNow(std::string_view text) override {
    if (isFull()) {
      return false;
    }
    if (!ended_ && !closing_) {
      append(gathered_, Opcode::text, text);
    }
    return true;
  }

  void push(std::shared_ptr<const std::string> text) override {
    // Later, so that of several that come at once the latest alone is sent.
    if (!ended_ && !closing_ && !std::exchange(waitingPush_, std::move(text))) {
      asio::post(socket_.get_executor(), [self = shared_from_this()] { self->flush(); });
    }
  }

  void flush() override {
    while (!writing_ && !ended_ && fillSending()) {
      const ssize_t count = ::send(socket_.native_handle(), sending_.data() + sent_,
                                   sending_.size() - sent_, MSG_NOSIGNAL | MSG_DONTWAIT);
      if (count >= 0) {
        took(static_cast<std::size_t>(count));
      } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
        waitForPeer();
      } else if (errno != EINTR) {
        cancel();
      }
    }
  }

  void setPaired(bool paired) override {
    place_->become(paired ? ConnectionKind::paired : ConnectionKind::unpaired);
    allowance_ = paired ? pairedAllowance : strangersAllowance;
    reader_.setMaxMessage(allowance_.incomingMessage);
  }

  void probe() override {
    // One that still has to take something is watched by that.
    if (!probedAt_ && ping()) {
      probedAt_ = Clock::now();
      watchTimer_.cancel();
    }
  }

  void cancel() override {
    ended_ = true;
    error_code ignored;
    socket_.close(ignored);
    queueMoved_.cancel();
    watchTimer_.cancel();
  }

 private:
  bool isFull() const { return gathered_.size() > allowance_.queued && !ended_; }

  // Resumes when the queue is not full, or the connection has ended.
  Awaitable<> room() {
    while (isFull()) {
      flush();
      if (isFull()) {
        co_await queueMoved_.async_wait(asio::as_tuple(asio::use_awaitable));
      }
    }
  }

  // Makes sure that there is something to send: the rest of the last bytes, what has gathered since
  // then, and the push last. False when there is nothing.
  bool fillSending() {
    if (!sending_.empty()) {
      return true;
    }
    if (gathered_.empty() && waitingPush_) {
      append(gathered_, Opcode::text, *waitingPush_);
      waitingPush_.reset();
    }
    sending_.swap(gathered_);
    queueMoved_.cancel();
    return !sending_.empty();
  }

  void took(std::size_t count) {
    sent_ += count;
    takenAt_ = Clock::now();
    if (sent_ == sending_.size()) {
      sent_ = 0;
      sending_.clear();
      if (sending_.capacity() > keptCapacity) {
        sending_.shrink_to_fit();
      }
    }
  }

  // The socket takes nothing more for now.
  void waitForPeer() {
    writing_ = true;
    takenAt_ = Clock::now();
    socket_.async_write_some(asio::buffer(sending_) + sent_,
                             [self = shared_from_this()](error_code error, std::size_t count) {
                               self->writing_ = false;
                               if (error) {
                                 self->cancel();
                               } else {
                                 self->took(count);
                                 self->flush();
                               }
                             });
  }

  // The protocol's end of a connection. What still comes is read and dropped until the peer has
  // ended too, since it would not get to see why if the socket were closed before that.
  void close(WebSocketFrames::CloseCode code) {
    closing_ = true;
    waitingPush_.reset();
    appendClose(gathered_, code);
    flush();
    if (writing_) {
      cancel();
    } else if (!ended_) {
      error_code ignored;
      socket_.shutdown(TcpSocket::shutdown_send, ignored);
    }
  }

  // Pings a quiet peer, and ends the connection of one that is gone or takes nothing. A peer is
  // only expected to be heard while it is listened to.
  static Awaitable<> watch(std::shared_ptr<Connection> self) {
    while (!self->ended_) {
      self->watchTimer_.expires_after(self->probedAt_ ? probeDeadline : keepAliveInterval);
      const auto due = self->watchTimer_.expiry();
      const auto [interrupted] =
          co_await self->watchTimer_.async_wait(asio::as_tuple(asio::use_awaitable));
      const auto now = Clock::now();
      if (interrupted || self->ended_) {
        continue;
      }
      if (now - due > stoppedFor) {
        self->probe();
      } else {
        self->check(now);
      }
    }
  }

  void check(Clock::time_point now) {
    const auto probedAt = std::exchange(probedAt_, std::nullopt);
    if (writing_) {
      if (now - takenAt_ > stuckAfter) {
        cancel();
      }
    } else if (reading_) {
      if (closing_ || now - heardOf_ > vanishedAfter || (probedAt && heardOf_ < *probedAt)) {
        cancel();
        return;
      }
      ping();
    }
  }

  // False when it is not the moment for one.
  bool ping() {
    if (!reading_ || writing_ || closing_ || ended_) {
      return false;
    }
    append(gathered_, Opcode::ping, {});
    flush();
    return true;
  }

  std::unique_ptr<ConnectionBounds::Place> place_;
  TcpSocket socket_;
  HandshakeHeaderCapture handshake_;
  std::array<char, readAtOnce> input_;
  Allowance allowance_ = strangersAllowance;
  WebSocketFrames::Reader reader_{allowance_.incomingMessage};
  std::string gathered_;  // goes out when `sending_` is gone
  std::string sending_;
  std::size_t sent_ = 0;  // of `sending_`
  std::shared_ptr<const std::string> waitingPush_;
  asio::steady_timer queueMoved_;
  asio::steady_timer watchTimer_;
  std::optional<Clock::time_point> probedAt_;  // while the answer is awaited
  Clock::time_point heardOf_ = Clock::now();
  Clock::time_point takenAt_ = Clock::now();
  bool reading_ = false;
  bool writing_ = false;  // the socket takes nothing more for now
  bool closing_ = false;  // the last frame was sent
  bool ended_ = false;
};

}  // namespace

std::shared_ptr<AcceptedConnection> acceptConnection(
    TcpSocket socket, std::unique_ptr<ConnectionBounds::Place> place) {
  return std::make_shared<Connection>(std::move(socket), std::move(place));
}

}  // namespace glintboard
