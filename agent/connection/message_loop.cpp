// SPDX-License-Identifier: MIT
#include "agent/connection/message_loop.h"

#include <utility>

namespace glintboard {

Awaitable<> receiveMessages(MessageDispatcher& dispatcher,
                            std::shared_ptr<WebSocketConnection> connection,
                            std::optional<std::string> token) {
  MessageDispatcher::Batch batch;
  for (;;) {
    auto message = connection->received();
    if (!message) {
      batch = {};
      message = co_await connection->receive();
    }
    if (!message) {
      co_return;
    }
    if (message->empty()) {
      continue;
    }
    auto answer = dispatcher.answer(std::move(*message), token, batch);
    if (auto* answering = std::get_if<Awaitable<Replies>>(&answer)) {
      connection->flush();
      batch = {};
      auto replies = co_await std::move(*answering);
      answer = std::move(replies);
    }
    for (auto& reply : std::get<Replies>(answer)) {
      co_await connection->send(std::move(reply));
    }
  }
}

}  // namespace glintboard
