#include "agent/connection/web_socket_server.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <deque>

#include "platform/file_descriptor.h"
#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using asio::ip::tcp;
using Clock = std::chrono::steady_clock;

constexpr std::size_t maxIncomingMessage = 1 << 20;
constexpr std::uint32_t maxUpgradeRequest = 16 << 10;
constexpr auto upgradeDeadline = 10s;
constexpr auto keepAliveInterval = 8s;
constexpr auto vanishedAfter = 23s;  // silence of a peer that is being listened to
constexpr auto stuckAfter = 60s;     // a write of which the peer takes nothing
constexpr std::size_t maxQueued = 4 << 20;
constexpr int maxConnections = 2048;
constexpr auto acceptPause = 100ms;  // after a failure that may pass, such as no descriptors left

// A socket that remembers when its operations began. A peer that moves bytes makes the library
// begin a new operation for the next ones.
class WatchedSocket {
 public:
  using executor_type = asio::any_io_executor;
  using Socket = asio::basic_stream_socket<tcp, asio::any_io_executor>;

  explicit WatchedSocket(Socket socket) : socket_(std::move(socket)) {}

  executor_type get_executor() { return socket_.get_executor(); }
  Socket& socket() { return socket_; }

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
  Socket socket_;
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

class Connection : public WebSocketConnection, public std::enable_shared_from_this<Connection> {
 public:
  // `count` is how many connections there are.
  Connection(WatchedSocket::Socket socket, std::shared_ptr<int> count)
      : count_(std::move(count)),
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
    ++*count_;
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() override { --*count_; }

  // Answers the upgrade request. False when it was none.
  Awaitable<bool> upgrade() {
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

  std::shared_ptr<int> count_;
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

error_code lastError() {
  return {errno, boost::system::system_category()};
}

// A listening socket of all addresses: of both families, or of IPv4 alone where there is no IPv6.
// It is made here rather than by the library, which would let launched programs inherit it.
FileDescriptor openListening(std::uint16_t port, int family, error_code& error) {
  FileDescriptor socket(::socket(family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  const int on = 1;
  const int off = 0;
  const tcp::endpoint endpoint(family == AF_INET6 ? tcp::v6() : tcp::v4(), port);
  if (!socket || ::setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on)) != 0 ||
      (family == AF_INET6 &&
       ::setsockopt(socket.get(), IPPROTO_IPV6, IPV6_V6ONLY, &off, sizeof(off)) != 0) ||
      ::bind(socket.get(), endpoint.data(), static_cast<socklen_t>(endpoint.size())) != 0 ||
      ::listen(socket.get(), SOMAXCONN) != 0) {
    error = lastError();
    return {};
  }
  error = {};
  return socket;
}

}  // namespace

class WebSocketListener::Acceptor : public std::enable_shared_from_this<Acceptor> {
 public:
  Acceptor(asio::any_io_executor executor, std::uint16_t port)
      : acceptor_(std::move(executor)), port_(port) {}

  void start(StateHandler onState, ConnectionHandler onConnection) {
    onState_ = std::move(onState);
    onConnection_ = std::move(onConnection);
    if (const error_code error = listen()) {
      report({WebSocketListenerState::Kind::failed, error});
      return;
    }
    report({WebSocketListenerState::Kind::ready, {}});
    spawn(acceptor_.get_executor(), accept(shared_from_this()), "listener");
  }

  void cancel() {
    error_code ignored;
    acceptor_.close(ignored);
    report({WebSocketListenerState::Kind::cancelled, {}});
  }

  void abandon() {
    error_code ignored;
    acceptor_.close(ignored);
    onState_ = nullptr;
    onConnection_ = nullptr;
  }

 private:
  error_code listen() {
    error_code error;
    int family = AF_INET6;
    FileDescriptor socket = openListening(port_, family, error);
    if (error == boost::system::errc::address_family_not_supported ||
        error == boost::system::errc::address_not_available) {
      family = AF_INET;
      socket = openListening(port_, family, error);
    }
    if (!error) {
      acceptor_.assign(family == AF_INET6 ? tcp::v6() : tcp::v4(), socket.get(), error);
    }
    if (!error) {
      socket.release();
    }
    return error;
  }

  void report(WebSocketListenerState state) {
    asio::post(acceptor_.get_executor(), [self = shared_from_this(), state] {
      if (self->onState_) {
        self->onState_(state);
      }
    });
  }

  static Awaitable<> accept(std::shared_ptr<Acceptor> self) {
    while (self->acceptor_.is_open()) {
      auto [error, socket] =
          co_await self->acceptor_.async_accept(asio::as_tuple(asio::use_awaitable));
      if (error) {
        if (self->acceptor_.is_open()) {
          log::warning("accepting a connection: ", error.message());
          co_await sleepFor(acceptPause);
        }
        continue;
      }
      if (*self->connections_ >= maxConnections) {
        continue;  // The socket is closed at once; the phones that are here matter more.
      }
      ::fcntl(socket.native_handle(), F_SETFD, FD_CLOEXEC);
      error_code ignored;
      socket.set_option(tcp::no_delay(true), ignored);
      spawn(self->acceptor_.get_executor(),
            serve(self, std::make_shared<Connection>(std::move(socket), self->connections_)),
            "connection");
    }
  }

  static Awaitable<> serve(std::shared_ptr<Acceptor> self, std::shared_ptr<Connection> connection) {
    const bool upgraded = co_await connection->upgrade();
    if (upgraded && self->onConnection_) {
      self->onConnection_(std::move(connection));
    }
  }

  asio::basic_socket_acceptor<tcp, asio::any_io_executor> acceptor_;
  std::uint16_t port_;
  StateHandler onState_;
  ConnectionHandler onConnection_;
  std::shared_ptr<int> connections_ = std::make_shared<int>(0);
};

WebSocketListener::WebSocketListener(asio::any_io_executor executor, std::uint16_t port)
    : acceptor_(std::make_shared<Acceptor>(std::move(executor), port)) {}

WebSocketListener::~WebSocketListener() {
  acceptor_->abandon();
}

void WebSocketListener::start(StateHandler onState, ConnectionHandler onConnection) {
  acceptor_->start(std::move(onState), std::move(onConnection));
}

void WebSocketListener::cancel() {
  acceptor_->cancel();
}

}  // namespace glintboard
