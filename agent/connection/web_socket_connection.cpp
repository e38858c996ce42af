// SPDX-License-Identifier: MIT
#include "agent/connection/web_socket_connection.h"

#include <sys/socket.h>

#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <cerrno>

#include "agent/connection/web_socket_upgrade.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
namespace beast = boost::beast;
namespace http = beast::http;
using WebSocketFrames::Opcode;
using WebSocketFrames::Received;

constexpr std::uint32_t maxUpgradeRequest = 16 << 10;
constexpr auto upgradeDeadline = 10s;
constexpr auto keepAliveInterval = 8s;
constexpr auto probeDeadline = 6s;
constexpr auto stoppedFor = 2s;      // a timer this late means that the process was stopped
constexpr auto vanishedAfter = 21s;  // silence of the peer during a read
constexpr auto stuckAfter = 60s;     // a write without progress
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

}  // namespace

WebSocketConnection::WebSocketConnection(TcpSocket socket,
                                         std::unique_ptr<ConnectionBounds::Ticket> ticket)
    : ticket_(std::move(ticket)),
      socket_(std::move(socket)),
      queueMoved_(socket_.get_executor()),
      watchTimer_(socket_.get_executor()) {
  queueMoved_.expires_at(Clock::time_point::max());
  ticket_->whenOut([this] { cancel(); });
  handshake_.peer = peerOf(socket_);
}

Awaitable<bool> WebSocketConnection::upgrade() {
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
  // The peer may have sent frames right behind the request.
  reader_.add({static_cast<const char*>(buffer.data().data()), buffer.size()});
  ticket_->become(ConnectionKind::unpaired);
  spawn(socket_.get_executor(), watch(self), "connection watch");
  co_return true;
}

Awaitable<std::optional<std::string>> WebSocketConnection::receive() {
  auto self = shared_from_this();
  while (!ended_) {
    if (auto message = received()) {
      co_return message;
    }
    // The answers to pings fill the queue too.
    if (isFull()) {
      co_await room();
    }
    flush();
    if (ended_) {
      break;
    }
    heardOf_ = Clock::now();
    reading_ = true;
    auto [error, count] =
        co_await socket_.async_read_some(asio::buffer(input_), asio::as_tuple(asio::use_awaitable));
    reading_ = false;
    if (error) {
      cancel();
    } else if (!closing_) {
      reader_.add({input_.data(), count});
    }
  }
  co_return std::nullopt;
}

std::optional<std::string> WebSocketConnection::received() {
  while (!ended_ && !closing_) {
    auto next = reader_.next();
    if (!next) {
      break;
    }
    switch (next->kind) {
      case Received::Kind::message:
        ticket_->touch();
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

Awaitable<> WebSocketConnection::send(std::string text) {
  auto self = shared_from_this();
  if (isFull()) {
    co_await room();
  }
  if (!ended_ && !closing_) {
    append(gathered_, Opcode::text, text);
  }
}

void WebSocketConnection::push(std::shared_ptr<const std::string> text) {
  // Flushes later, so that of several pushes in a row only the latest is sent.
  if (!ended_ && !closing_ && !std::exchange(waitingPush_, std::move(text))) {
    asio::post(socket_.get_executor(), [self = shared_from_this()] { self->flush(); });
  }
}

void WebSocketConnection::flush() {
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

void WebSocketConnection::setPaired(bool paired) {
  ticket_->become(paired ? ConnectionKind::paired : ConnectionKind::unpaired);
  allowance_ = paired ? pairedAllowance : strangersAllowance;
  reader_.setMaxMessage(allowance_.incomingMessage);
}

void WebSocketConnection::probe() {
  // A peer that has yet to read something is covered by the write deadline.
  if (!probedAt_ && ping()) {
    probedAt_ = Clock::now();
    watchTimer_.cancel();
  }
}

void WebSocketConnection::cancel() {
  ended_ = true;
  error_code ignored;
  socket_.close(ignored);
  queueMoved_.cancel();
  watchTimer_.cancel();
}

bool WebSocketConnection::isFull() const {
  return gathered_.size() > allowance_.queued && !ended_;
}

Awaitable<> WebSocketConnection::room() {
  while (isFull()) {
    flush();
    if (isFull()) {
      co_await queueMoved_.async_wait(asio::as_tuple(asio::use_awaitable));
    }
  }
}

bool WebSocketConnection::fillSending() {
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

void WebSocketConnection::took(std::size_t count) {
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

void WebSocketConnection::waitForPeer() {
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

void WebSocketConnection::close(WebSocketFrames::CloseCode code) {
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

Awaitable<> WebSocketConnection::watch(std::shared_ptr<WebSocketConnection> self) {
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

void WebSocketConnection::check(Clock::time_point now) {
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

bool WebSocketConnection::ping() {
  if (!reading_ || writing_ || closing_ || ended_) {
    return false;
  }
  append(gathered_, Opcode::ping, {});
  flush();
  return true;
}

}  // namespace glintboard
