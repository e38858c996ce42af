// SPDX-License-Identifier: MIT
// The messages of one connection.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "agent/connection/message_dispatcher.h"
#include "agent/connection/web_socket_connection.h"

namespace glintboard {

// Receives the messages of a connection that presented `token`, one after another, and sends the
// replies to each before it receives the next. Ends with the connection. Each connection has a loop
// of its own on the service loop; all of them run concurrently. The dispatcher must outlive it.
Awaitable<> receiveMessages(MessageDispatcher& dispatcher,
                            std::shared_ptr<WebSocketConnection> connection,
                            std::optional<std::string> token);

}  // namespace glintboard
