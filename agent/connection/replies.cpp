// SPDX-License-Identifier: MIT
#include "agent/connection/replies.h"
#include "protocol/glintboard_service.h"
#include "protocol/message_factory.h"

namespace glintboard {
namespace {

namespace Parser = WireMessageParser;

std::string unauthorizedMessage() {
  return std::string("Missing or invalid ").append(GlintboardService::authHeaderName) + " header";
}

Replies appUnauthorized(std::string bundleId, Uuid id) {
  return oneReply(MessageFactory::appError(std::move(bundleId), AppErrorCode::unauthorized,
                                           unauthorizedMessage(), id));
}

struct Refusal {
  Replies operator()(const WireMessage<EmptyPayload>& request) const {
    return appUnauthorized("", request.id);
  }
  Replies operator()(const Parser::AppLaunch& request) const {
    return appUnauthorized(request.message.payload.bundleId, request.message.id);
  }
  Replies operator()(const Parser::AppFocus& request) const {
    return appUnauthorized(request.message.payload.bundleId, request.message.id);
  }
  Replies operator()(const WireMessage<ActionRunPayload>& request) const {
    return oneReply(MessageFactory::actionError(request.payload.actionId,
                                                ActionErrorCode::unauthorized,
                                                unauthorizedMessage(), request.id));
  }
  Replies operator()(const WireMessage<ShortcutRunPayload>& request) const {
    return oneReply(MessageFactory::shortcutError(request.payload.shortcutIdentifier,
                                                  ShortcutErrorCode::unauthorized,
                                                  unauthorizedMessage(), request.id));
  }
  template <class Other>
  Replies operator()(const Other&) const {
    return {};
  }
};

}  // namespace

Replies refusalOf(const Parser::ParsedMessage& message) {
  return std::visit(Refusal{}, message);
}

}  // namespace glintboard
