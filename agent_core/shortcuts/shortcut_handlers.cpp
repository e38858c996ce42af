// SPDX-License-Identifier: MIT
#include "agent_core/shortcuts/shortcut_handlers.h"

#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "platform/log.h"
#include "protocol/message_factory.h"

namespace glintboard {
namespace {

struct Reply {
  Uuid id;
  ShortcutMessageResponse operator()(ShortcutRunResult::Ok ok) const {
    log::info("Shortcut ", ok.shortcutIdentifier, ": ok");
    return MessageFactory::shortcutOK(std::move(ok.shortcutIdentifier), id);
  }
  ShortcutMessageResponse operator()(ShortcutRunResult::Error error) const {
    log::info("Shortcut ", error.shortcutIdentifier, ": ", rawValue(error.code), ": ",
              error.message.value_or(""));
    return MessageFactory::shortcutError(std::move(error.shortcutIdentifier), error.code,
                                         std::move(error.message), id);
  }
};

}  // namespace

ShortcutMessageHandler::ShortcutMessageHandler()
    : ShortcutMessageHandler(ShortcutsRunner(ShortcutsCatalog::defaultExecutable)) {}

Awaitable<ShortcutMessageResponse> ShortcutMessageHandler::handleRun(std::string shortcutIdentifier,
                                                                     Uuid messageId) const {
  auto result = co_await runner_.run(std::move(shortcutIdentifier));
  co_return std::visit(Reply{messageId}, std::move(result));
}

Awaitable<WireReply> ShortcutWireHandler::handle(std::string bytes) const {
  const auto envelope = decodeJson<IncomingWireEnvelope>(bytes);
  if (!envelope) {
    co_return envelope.error();
  }
  if (envelope->type != rawValue(MessageType::shortcutRun)) {
    co_return std::nullopt;
  }
  auto request = WireCodec::decode<ShortcutRunPayload>(bytes);
  if (!request) {
    co_return request.error();
  }
  const auto reply =
      co_await handler_.handleRun(std::move(request->payload.shortcutIdentifier), request->id);
  co_return encodedReply(reply);
}

}  // namespace glintboard
