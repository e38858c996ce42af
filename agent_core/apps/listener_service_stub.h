// SPDX-License-Identifier: MIT
// Application requests without a network.
#pragma once

#include "agent_core/apps/app_handlers.h"
#include "platform/actor.h"

namespace glintboard {

// Passes raw messages to the application handler.
class ListenerServiceStub : public Actor {
 public:
  ListenerServiceStub(asio::any_io_executor executor, AppWireHandler appWireHandler)
      : Actor(std::move(executor)), appWireHandler_(std::move(appWireHandler)) {}
  // Over `WorkspaceClient::live`.
  explicit ListenerServiceStub(asio::any_io_executor executor);

  Awaitable<WireReply> route(std::string data);

 private:
  AppWireHandler appWireHandler_;
};

}  // namespace glintboard
