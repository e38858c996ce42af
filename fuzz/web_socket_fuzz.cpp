// SPDX-License-Identifier: MIT
// A byte stream sent to the WebSocket endpoint, which echoes every message. Input that does not
// begin with an upgrade request is sent after a valid one.
#include <boost/asio/io_context.hpp>

#include "agent/connection/web_socket_listener.h"
#include "fuzz/fuzz.h"
#include "platform/spawn.h"
#include "tests/support/test_agent.h"

namespace glintboard {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view upgrade =
    "GET / HTTP/1.1\r\nHost: a\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
    "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n";

// Server and peer share one thread, so that runs are reproducible.
class Endpoint {
 public:
  Endpoint() {
    bool ready = false;
    listener_.start(
        [&](const WebSocketListenerState& state) {
          ready = state.kind == WebSocketListenerState::Kind::ready;
        },
        [this](std::shared_ptr<WebSocketConnection> connection) {
          spawn(loop_.get_executor(), echo(this, std::move(connection)), "echo");
        });
    loop_.poll();
    fuzz::require(ready, "the endpoint listens");
  }

  void receive(std::string_view bytes) {
    const FileDescriptor peer = connect();
    if (!bytes.starts_with("GET ")) {
      exchange(peer, upgrade);
    }
    // Every other input arrives in two parts.
    const auto half = bytes.size() % 2 * (bytes.size() / 2);
    exchange(peer, bytes.substr(0, half));
    exchange(peer, bytes.substr(half));
    ::shutdown(peer.get(), SHUT_WR);
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    while (drain(peer)) {
      loop_.run_one_for(10ms);
      fuzz::require(std::chrono::steady_clock::now() < deadline, "a peer that left is let go");
    }
    loop_.poll();
    fuzz::require(live_ == 0, "a connection that ended is forgotten");
  }

 private:
  FileDescriptor connect() {
    FileDescriptor peer(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port_);
    // Uses several addresses, because a closed connection occupies its port for a while.
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK + next_++ % 0xFFFF);
    fuzz::require(
        ::connect(peer.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0,
        "a peer can connect");
    return peer;
  }

  void exchange(const FileDescriptor& peer, std::string_view bytes) {
    ::send(peer.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    loop_.poll();
    drain(peer);
  }

  // Reads what was sent to the peer. False if the server has closed the connection.
  static bool drain(const FileDescriptor& peer) {
    char buffer[4096];
    for (;;) {
      const auto count = ::recv(peer.get(), buffer, sizeof(buffer), MSG_DONTWAIT);
      if (count <= 0) {
        return count < 0 && errno == EAGAIN;
      }
    }
  }

  static Awaitable<> echo(Endpoint* self, std::shared_ptr<WebSocketConnection> connection) {
    ++self->live_;
    connection->push(std::make_shared<const std::string>("push"));
    while (auto message = co_await connection->receive()) {
      co_await connection->send(std::move(*message));
    }
    --self->live_;
  }

  const std::uint16_t port_ = test::freePort();
  asio::io_context loop_{1};
  WebSocketListener listener_{loop_.get_executor(), port_,
                              std::make_shared<ConnectionBounds>(ConnectionLimits{})};
  std::uint32_t next_ = 0;
  int live_ = 0;
};

}  // namespace
}  // namespace glintboard

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static glintboard::Endpoint endpoint;
  endpoint.receive(glintboard::fuzz::textOf(data, size));
  return 0;
}
