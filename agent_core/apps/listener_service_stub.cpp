// SPDX-License-Identifier: MIT
#include "agent_core/apps/listener_service_stub.h"

namespace glintboard {

ListenerServiceStub::ListenerServiceStub(asio::any_io_executor executor)
    : ListenerServiceStub(std::move(executor),
                          AppWireHandler(AppLauncher(WorkspaceClient::live()))) {}

Awaitable<WireReply> ListenerServiceStub::route(std::string data) {
  return enter(appWireHandler_.handle(std::move(data)));
}

}  // namespace glintboard
