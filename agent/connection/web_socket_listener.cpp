// SPDX-License-Identifier: MIT
#include "agent/connection/web_socket_listener.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include "platform/file_descriptor.h"
#include "platform/log.h"
#include "platform/spawn.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;
using asio::ip::tcp;

// Accepting pauses while more ended connections than this wait for their destruction.
constexpr std::size_t maxEnding = 128;
constexpr auto endingPause = 1ms;
constexpr auto acceptPause = 100ms;  // after a temporary failure, such as no descriptors left

error_code lastError() {
  return {errno, boost::system::system_category()};
}

// A listening socket on all addresses of the family; IPv6 includes IPv4. Asio would open it without
// SOCK_CLOEXEC, and launched programs would inherit it.
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
  Acceptor(asio::any_io_executor executor, std::uint16_t port,
           std::shared_ptr<ConnectionBounds> bounds)
      : acceptor_(std::move(executor)), port_(port), bounds_(std::move(bounds)) {}

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
          if (!self->maySurvive(error)) {
            error_code ignored;
            self->acceptor_.close(ignored);
            self->report({WebSocketListenerState::Kind::failed, error});
            co_return;
          }
          co_await sleepFor(acceptPause);
        }
        continue;
      }
      self->failing_ = false;
      self->take(std::move(socket));
      while (self->bounds_->ending() > maxEnding) {
        co_await sleepFor(endingPause);
      }
    }
  }

  // Whether the socket still listens after a failure to accept. Without free descriptors a
  // connection stays in the backlog.
  bool maySurvive(error_code error) {
    if (!std::exchange(failing_, true)) {
      log::warning("a connection was not accepted: ", error.message());
    }
    if (error == boost::system::errc::too_many_files_open ||
        error == boost::system::errc::too_many_files_open_in_system) {
      bounds_->makeRoom();
    }
    return error != boost::system::errc::invalid_argument &&
           error != boost::system::errc::bad_file_descriptor;
  }

  void take(TcpSocket socket) {
    error_code gone;
    const auto peer = socket.remote_endpoint(gone);
    auto ticket = gone ? nullptr : bounds_->enter(peer.address());
    if (!ticket) {
      return;
    }
    ::fcntl(socket.native_handle(), F_SETFD, FD_CLOEXEC);
    error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    spawn(acceptor_.get_executor(),
          serve(shared_from_this(),
                std::make_shared<WebSocketConnection>(std::move(socket), std::move(ticket))),
          "connection");
  }

  static Awaitable<> serve(std::shared_ptr<Acceptor> self,
                           std::shared_ptr<WebSocketConnection> connection) {
    const bool upgraded = co_await connection->upgrade();
    if (!upgraded) {
      log::debug("no upgrade request from ", connection->handshake().peer);
    } else if (self->onConnection_) {
      self->onConnection_(std::move(connection));
    } else {
      connection->cancel();
    }
  }

  asio::basic_socket_acceptor<tcp, asio::any_io_executor> acceptor_;
  std::uint16_t port_;
  std::shared_ptr<ConnectionBounds> bounds_;
  bool failing_ = false;
  StateHandler onState_;
  ConnectionHandler onConnection_;
};

WebSocketListener::WebSocketListener(asio::any_io_executor executor, std::uint16_t port,
                                     std::shared_ptr<ConnectionBounds> bounds)
    : acceptor_(std::make_shared<Acceptor>(std::move(executor), port, std::move(bounds))) {}

WebSocketListener::~WebSocketListener() {
  acceptor_->abandon();
}

void WebSocketListener::start(StateHandler onState, ConnectionHandler onConnection) {
  acceptor_->start(std::move(onState), std::move(onConnection));
}

}  // namespace glintboard
