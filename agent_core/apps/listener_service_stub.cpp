#include "agent_core/apps/listener_service_stub.h"

namespace glintboard {

Awaitable<WireReply> ListenerServiceStub::route(std::string data) {
  return enter(appWireHandler_.handle(std::move(data)));
}

}  // namespace glintboard
