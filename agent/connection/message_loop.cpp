// SPDX-License-Identifier: MIT
#include "agent/connection/message_loop.h"

#include <utility>

namespace glintboard {

Awaitable<> receiveMessages(MessageDispatcher& dispatcher,
                            std::shared_ptr<WebSocketConnection> connection,
                            std::optional<std::string> token) {
  while (auto message = co_await connection->receive()) {
    if (message->empty()) {
      continue;
    }
    auto answer = dispatcher.answer(std::move(*message), token);
    if (auto* answering = std::get_if<Awaitable<Replies>>(&answer)) {
      connection->flush();
      auto replies = co_await std::move(*answering);
      answer = std::move(replies);
    }
    for (auto& reply : std::get<Replies>(answer)) {
      co_await connection->send(std::move(reply));
    }
  }
}

}  // namespace glintboard
