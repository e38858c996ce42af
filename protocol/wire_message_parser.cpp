#include "protocol/wire_message_parser.h"

namespace glintboard::WireMessageParser {
namespace {

template <class Payload, class Wrapper = WireMessage<Payload>>
Decoded<ParsedMessage> typed(const boost::json::value& value) {
  auto message = decodeValue<WireMessage<Payload>>(value);
  if (!message) {
    return message.error();
  }
  return ParsedMessage(Wrapper{std::move(*message)});
}

}  // namespace

Decoded<ParsedMessage> parse(std::string_view bytes) {
  unsigned char buffer[4096];
  boost::json::monotonic_resource memory(buffer);
  const auto value = parseJson(bytes, &memory);
  if (!value) {
    return value.error();
  }
  auto envelope = decodeValue<MessageEnvelope>(*value);
  if (!envelope) {
    return envelope.error();
  }
  switch (fromRawValue<MessageType>(envelope->type).value_or(MessageType::pong)) {
    case MessageType::pairRequest:
      return typed<PairRequestPayload>(*value);
    case MessageType::deckSync:
      return typed<EmptyPayload>(*value);
    case MessageType::ping:
      return typed<PingPayload>(*value);
    case MessageType::appLaunch:
      return typed<AppActionPayload, AppLaunch>(*value);
    case MessageType::appFocus:
      return typed<AppActionPayload, AppFocus>(*value);
    case MessageType::actionRun:
      return typed<ActionRunPayload>(*value);
    case MessageType::shortcutRun:
      return typed<ShortcutRunPayload>(*value);
    case MessageType::appIconRequest:
      return typed<AppIconRequestPayload>(*value);
    default:  // a type that only the agent sends, or none of the protocol
      return ParsedMessage(Unknown{std::move(envelope->type), envelope->id});
  }
}

}  // namespace glintboard::WireMessageParser
