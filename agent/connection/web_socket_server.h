// WebSockets, wrapped once: the rest of the agent never sees the library behind them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/asio.h"
#include "protocol/web_socket_auth.h"

namespace glintboard {

// The headers of the upgrade that made a connection.
struct HandshakeHeaderCapture {
  HeaderList headers;
};

// One upgraded connection. Everything happens on the service loop. Pings are answered by itself; a
// peer that vanished is noticed within 30 seconds, one that takes no byte for 60 seconds is closed.
class WebSocketConnection {
 public:
  virtual ~WebSocketConnection() = default;

  virtual const HandshakeHeaderCapture& handshake() const = 0;
  // The next complete message, text or binary; none when the connection has ended. One caller at a
  // time.
  virtual Awaitable<std::optional<std::string>> receive() = 0;
  // Queues a text for sending, in order. Waits while the queue is full, and gives up when the
  // connection has ended.
  virtual Awaitable<> send(std::string text) = 0;
  // Sends a text when the queue allows. A push that is still waiting is replaced by a later one.
  virtual void push(std::shared_ptr<const std::string> text) = 0;
  // Ends the connection: at once, without a closing handshake.
  virtual void cancel() = 0;
};

// What becomes of a listener.
struct WebSocketListenerState {
  enum class Kind { ready, failed, cancelled };
  Kind kind = Kind::ready;
  error_code error;  // why it failed
};

// Listens on all addresses of one port. Everything happens on the service loop, on which the
// handlers are called too, never from inside a call of this class.
class WebSocketListener {
 public:
  using StateHandler = std::function<void(WebSocketListenerState)>;
  using ConnectionHandler = std::function<void(std::shared_ptr<WebSocketConnection>)>;

  WebSocketListener(asio::any_io_executor executor, std::uint16_t port);
  // Stops listening; connections go on, and no handler is called any more.
  ~WebSocketListener();
  WebSocketListener(const WebSocketListener&) = delete;
  WebSocketListener& operator=(const WebSocketListener&) = delete;

  // Begins listening; how that went arrives as a state.
  void start(StateHandler onState, ConnectionHandler onConnection);
  // Stops listening; the connections that are open go on.
  void cancel();

 private:
  class Acceptor;
  std::shared_ptr<Acceptor> acceptor_;
};

}  // namespace glintboard
