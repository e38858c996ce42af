// SPDX-License-Identifier: MIT
#pragma once

#include "agent_core/apps/app_handlers.h"
#include "platform/actor.h"

namespace glintboard {

// A stand-alone harness that routes raw messages to the application handler, without a network.
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
