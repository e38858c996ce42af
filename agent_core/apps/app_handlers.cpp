// SPDX-License-Identifier: MIT
#include "agent_core/apps/app_handlers.h"

#include "platform/log.h"
#include "protocol/message_factory.h"

namespace glintboard {
namespace {

struct Reply {
  Uuid id;
  AppMessageResponse operator()(AppLauncherOutcome::Ok ok) const {
    return MessageFactory::appOK(std::move(ok.bundleId), id);
  }
  AppMessageResponse operator()(AppLauncherOutcome::Error error) const {
    log::info("application ", error.bundleId, ": ", rawValue(error.code), ": ",
              error.message.value_or(""));
    return MessageFactory::appError(std::move(error.bundleId), error.code, std::move(error.message),
                                    id);
  }
};

}  // namespace

Awaitable<AppMessageResponse> AppMessageHandler::handleLaunch(std::string bundleId,
                                                              Uuid messageId) const {
  return handle(AppLauncherAction::launch, std::move(bundleId), messageId);
}

Awaitable<AppMessageResponse> AppMessageHandler::handleFocus(std::string bundleId,
                                                             Uuid messageId) const {
  return handle(AppLauncherAction::focus, std::move(bundleId), messageId);
}

Awaitable<AppMessageResponse> AppMessageHandler::handle(AppLauncherAction action,
                                                        std::string bundleId,
                                                        Uuid messageId) const {
  auto outcome = co_await launcher_.perform(action, std::move(bundleId));
  co_return std::visit(Reply{messageId}, std::move(outcome));
}

Awaitable<WireReply> AppWireHandler::handle(std::string bytes) const {
  const auto envelope = decodeJson<IncomingWireEnvelope>(bytes);
  if (!envelope) {
    co_return envelope.error();
  }
  const auto type = fromRawValue<MessageType>(envelope->type);
  if (type != MessageType::appLaunch && type != MessageType::appFocus) {
    co_return std::nullopt;
  }
  auto request = WireCodec::decode<AppActionPayload>(bytes);
  if (!request) {
    co_return request.error();
  }
  auto handling = type == MessageType::appLaunch
                      ? handler_.handleLaunch(std::move(request->payload.bundleId), request->id)
                      : handler_.handleFocus(std::move(request->payload.bundleId), request->id);
  const auto reply = co_await std::move(handling);
  co_return encodedReply(reply);
}

}  // namespace glintboard
