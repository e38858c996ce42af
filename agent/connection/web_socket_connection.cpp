#include "agent/connection/web_socket_connection.h"

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <deque>

#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using Clock = std::chrono::steady_clock;

constexpr std::size_t maxIncomingMessage = 1 << 20;
constexpr std::uint32_t maxUpgradeRequest = 16 << 10;
constexpr auto upgradeDeadline = 10s;
constexpr auto keepAliveInterval = 8s;
constexpr auto vanishedAfter = 23s;  // silence of a peer that is being listened to
constexpr auto stuckAfter = 60s;     // a write of which the peer takes nothing
constexpr std::size_t maxQueued = 4 << 20;

// A socket that remembers when its operations began. A peer that moves bytes makes the library
// begin a new operation for the next ones.
class WatchedSocket {
 public:
  using executor_type = asio::any_io_executor;

  explicit WatchedSocket(TcpSocket socket) : socket_(std::move(socket)) {}

  executor_type get_executor() { return socket_.get_executor(); }
  TcpSocket& socket() { return socket_; }

  template <class Buffers, class Token>
  auto async_read_some(const Buffers& buffers, Token&& token) {
    readBegan = Clock::now();
    return socket_.async_read_some(buffers, std::forward<Token>(token));
  }

  template <class Buffers, class Token>
  auto async_write_some(const Buffers& buffers, Token&& token) {
    writeBegan = Clock::now();
    return socket_.async_write_some(buffers, std::forward<Token>(token));
  }

  Clock::time_point readBegan = Clock::now();
  Clock::time_point writeBegan = Clock::now();

 private:
  TcpSocket socket_;
};

// The library's closing handshake over our socket.
[[maybe_unused]] void teardown(beast::role_type role, WatchedSocket& stream, error_code& error) {
  websocket::teardown(role, stream.socket(), error);
}
template <class Handler>
void async_teardown(beast::role_type role, WatchedSocket& stream, Handler&& handler) {
  websocket::async_teardown(role, stream.socket(), std::forward<Handler>(handler));
}

void beast_close_socket(WatchedSocket& stream) {
  error_code ignored;
  stream.socket().close(ignored);
}

HandshakeHeaderCapture capture(const http::request<http::empty_body>& request) {
  HandshakeHeaderCapture handshake;
  for (const auto& field : request) {
    handshake.headers.emplace_back(field.name_string(), field.value());
  }
  return handshake;
}

class Connection : public AcceptedConnection, public std::enable_shared_from_this<Connection> {
 public:
  Connection(TcpSocket socket, std::shared_ptr<void> place)
      : place_(std::move(place)),
        stream_(std::move(socket)),
        queueMoved_(stream_.get_executor()),
        watchTimer_(stream_.get_executor()) {
    // The library's own timers would end a connection whose messages are being handled; the
    // watch below tells a slow handler from a vanished peer.
    stream_.set_option(websocket::stream_base::timeout{websocket::stream_base::none(),
                                                       websocket::stream_base::none(), false});
    stream_.read_message_max(maxIncomingMessage);
    stream_.text(true);
    queueMoved_.expires_at(Clock::time_point::max());
  }

  Awaitable<bool> upgrade() override {
    auto self = shared_from_this();
    asio::steady_timer deadline(stream_.get_executor(), upgradeDeadline);
    deadline.async_wait([self](error_code error) {
      if (!error) {
        self->cancel();
      }
    });
    beast::flat_buffer buffer(maxUpgradeRequest);
    http::request_parser<http::empty_body> parser;
    parser.header_limit(maxUpgradeRequest);
    auto [readError, count] = co_await http::async_read(
        stream_.next_layer().socket(), buffer, parser, asio::as_tuple(asio::use_awaitable));
    if (readError) {
      co_return false;
    }
    handshake_ = capture(parser.get());
    auto [error] = co_await stream_.async_accept(parser.get(), asio::as_tuple(asio::use_awaitable));
    if (error) {
      cancel();
      co_return false;
    }
    spawn(stream_.get_executor(), watch(self), "connection watch");
    co_return true;
  }

  const HandshakeHeaderCapture& handshake() const override { return handshake_; }

  Awaitable<std::optional<std::string>> receive() override {
    auto self = shared_from_this();
    std::string message;
    auto buffer = asio::dynamic_buffer(message, maxIncomingMessage);
    reading_ = true;
    auto [error, count] = co_await stream_.async_read(buffer, asio::as_tuple(asio::use_awaitable));
    reading_ = false;
    if (error) {
      cancel();
      co_return std::nullopt;
    }
    co_return message;
  }

  Awaitable<> send(std::string text) override {
    auto self = shared_from_this();
    while (queued_ > maxQueued && !ended_) {
      co_await queueMoved_.async_wait(asio::as_tuple(asio::use_awaitable));
    }
    if (ended_) {
      co_return;
    }
    queued_ += text.size();
    queue_.push_back(std::make_shared<const std::string>(std::move(text)));
    startWriting();
  }

  void push(std::shared_ptr<const std::string> text) override {
    if (ended_) {
      return;
    }
    waitingPush_ = std::move(text);
    startWriting();
  }

  void cancel() override {
    ended_ = true;
    error_code ignored;
    stream_.next_layer().socket().close(ignored);
    queueMoved_.cancel();
    watchTimer_.cancel();
  }

 private:
  void startWriting() {
    if (!writing_) {
      writing_ = true;
      spawn(stream_.get_executor(), write(shared_from_this()), "connection");
    }
  }

  // Sends what is queued, one whole message after another, the waiting push last.
  static Awaitable<> write(std::shared_ptr<Connection> self) {
    while (!self->ended_) {
      const auto text = self->next();
      if (!text) {
        break;
      }
      self->stream_.next_layer().writeBegan = Clock::now();
      auto [error, count] = co_await self->stream_.async_write(asio::buffer(*text),
                                                               asio::as_tuple(asio::use_awaitable));
      if (error) {
        self->cancel();
      }
    }
    self->writing_ = false;
  }

  std::shared_ptr<const std::string> next() {
    if (queue_.empty()) {
      return std::exchange(waitingPush_, nullptr);
    }
    auto text = std::move(queue_.front());
    queue_.pop_front();
    queued_ -= text->size();
    queueMoved_.cancel();
    return text;
  }

  // Pings a quiet peer, and ends the connection of one that is gone or takes nothing. A peer is
  // only expected to be heard while it is listened to.
  static Awaitable<> watch(std::shared_ptr<Connection> self) {
    while (!self->ended_) {
      self->watchTimer_.expires_after(keepAliveInterval);
      co_await self->watchTimer_.async_wait(asio::as_tuple(asio::use_awaitable));
      self->check(Clock::now());
    }
  }

  void check(Clock::time_point now) {
    const auto& socket = stream_.next_layer();
    if (writing_ || pinging_) {
      if (now - socket.writeBegan > stuckAfter) {
        cancel();
      }
    } else if (reading_ && !ended_) {
      if (now - socket.readBegan > vanishedAfter) {
        cancel();
        return;
      }
      pinging_ = true;
      stream_.async_ping({}, [self = shared_from_this()](error_code) { self->pinging_ = false; });
    }
  }

  std::shared_ptr<void> place_;
  websocket::stream<WatchedSocket> stream_;
  HandshakeHeaderCapture handshake_;
  std::deque<std::shared_ptr<const std::string>> queue_;
  std::size_t queued_ = 0;  // bytes in the queue, the message being written not counted
  std::shared_ptr<const std::string> waitingPush_;
  asio::steady_timer queueMoved_;
  asio::steady_timer watchTimer_;
  bool reading_ = false;
  bool writing_ = false;
  bool pinging_ = false;
  bool ended_ = false;
};

}  // namespace

std::shared_ptr<AcceptedConnection> acceptConnection(TcpSocket socket,
                                                     std::shared_ptr<void> place) {
  return std::make_shared<Connection>(std::move(socket), std::move(place));
}

}  // namespace glintboard
