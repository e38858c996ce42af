// SPDX-License-Identifier: MIT
#include "agent_core/actions/action_handlers.h"

#include "platform/log.h"
#include "protocol/message_factory.h"

namespace glintboard {
namespace {

struct Reply {
  Uuid id;
  ActionMessageResponse operator()(SystemActionResult::Ok ok) const {
    return MessageFactory::actionOK(std::move(ok.actionId), id);
  }
  ActionMessageResponse operator()(SystemActionResult::Error error) const {
    log::info("action ", error.actionId, ": ", rawValue(error.code), ": ",
              error.message.value_or(""));
    return MessageFactory::actionError(std::move(error.actionId), error.code,
                                       std::move(error.message), id);
  }
};

}  // namespace

ActionMessageResponse ActionMessageHandler::handleRun(const std::string& actionId,
                                                      Uuid messageId) const {
  return std::visit(Reply{messageId}, runner_.perform(actionId));
}

WireReply ActionWireHandler::handle(std::string_view bytes) const {
  const auto envelope = decodeJson<IncomingWireEnvelope>(bytes);
  if (!envelope) {
    return envelope.error();
  }
  if (envelope->type != rawValue(MessageType::actionRun)) {
    return std::nullopt;
  }
  const auto request = WireCodec::decode<ActionRunPayload>(bytes);
  if (!request) {
    return request.error();
  }
  return encodedReply(handler_.handleRun(request->payload.actionId, request->id));
}

}  // namespace glintboard
