// SPDX-License-Identifier: MIT
// An echo with the agent's own frames and batching: its WebSocketConnection, without the agent.
#include "agent/connection/web_socket_connection.h"
#include "bench/baselines/echo_server.h"
#include "platform/spawn.h"

namespace {

using namespace glintboard;

Awaitable<> echo(std::shared_ptr<WebSocketConnection> connection) {
  if (co_await connection->upgrade()) {
    connection->setPaired(true);
    while (auto message = co_await connection->receive()) {
      do {
        co_await connection->send(std::move(*message));
      } while ((message = connection->received()));
    }
  }
}

}  // namespace

int main(int, char** argv) {
  const auto bounds = std::make_shared<ConnectionBounds>(ConnectionLimits{});
  bench::serve(argv[1], [&](bench::Socket socket) {
    const auto executor = socket.get_executor();
    auto ticket = bounds->enter(socket.remote_endpoint().address());
    spawn(executor,
          echo(std::make_shared<WebSocketConnection>(std::move(socket), std::move(ticket))),
          "echo");
  });
}
