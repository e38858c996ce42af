// SPDX-License-Identifier: MIT
// The agent's listening socket.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "agent/connection/web_socket_connection.h"

namespace glintboard {

// The outcome of listening.
struct WebSocketListenerState {
  enum class Kind { ready, failed };
  Kind kind = Kind::ready;
  error_code error;  // of a failure
};

// Listens on all addresses of one port. Used on the service loop only. The handlers are called on
// it too, never from inside a call of this class.
class WebSocketListener {
 public:
  using StateHandler = std::function<void(WebSocketListenerState)>;
  using ConnectionHandler = std::function<void(std::shared_ptr<WebSocketConnection>)>;

  // A connection beyond the total limit of `bounds` is closed before its upgrade.
  WebSocketListener(asio::any_io_executor executor, std::uint16_t port,
                    std::shared_ptr<ConnectionBounds> bounds);
  // Stops listening. Connections continue; the handlers are not called again.
  ~WebSocketListener();
  WebSocketListener(const WebSocketListener&) = delete;
  WebSocketListener& operator=(const WebSocketListener&) = delete;

  // Starts listening and reports the outcome to `onState`, once. `onConnection` receives each
  // upgraded connection.
  void start(StateHandler onState, ConnectionHandler onConnection);

 private:
  class Acceptor;
  std::shared_ptr<Acceptor> acceptor_;
};

}  // namespace glintboard
