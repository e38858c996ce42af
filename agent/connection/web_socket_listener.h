// SPDX-License-Identifier: MIT
// The agent's listening socket.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "agent/connection/web_socket_connection.h"

namespace glintboard {

// What becomes of a listener.
struct WebSocketListenerState {
  enum class Kind { ready, failed };
  Kind kind = Kind::ready;
  error_code error;  // why it failed
};

// Listens on all addresses of one port. Everything happens on the service loop, on which the
// handlers are called too, never from inside a call of this class.
class WebSocketListener {
 public:
  using StateHandler = std::function<void(WebSocketListenerState)>;
  using ConnectionHandler = std::function<void(std::shared_ptr<WebSocketConnection>)>;

  // Connections beyond the bounds are closed before their upgrade.
  WebSocketListener(asio::any_io_executor executor, std::uint16_t port,
                    std::shared_ptr<ConnectionBounds> bounds);
  // Stops listening; connections go on, and no handler is called any more.
  ~WebSocketListener();
  WebSocketListener(const WebSocketListener&) = delete;
  WebSocketListener& operator=(const WebSocketListener&) = delete;

  // Begins listening; how that went arrives as a state.
  void start(StateHandler onState, ConnectionHandler onConnection);

 private:
  class Acceptor;
  std::shared_ptr<Acceptor> acceptor_;
};

}  // namespace glintboard
