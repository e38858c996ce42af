// SPDX-License-Identifier: MIT
#include "protocol/wire_message_parser.h"

#include <algorithm>

namespace glintboard::WireMessageParser {
namespace {

// Counted by the commas, before anything is read; no phone needs a hundredth.
constexpr std::ptrdiff_t maxValues = 16'384;

template <class Payload, class Wrapper = WireMessage<Payload>>
Decoded<ParsedMessage> typed(std::string_view bytes) {
  auto message = decodeJson<WireMessage<Payload>>(bytes);
  if (!message) {
    return message.error();
  }
  return ParsedMessage(Wrapper{std::move(*message)});
}

}  // namespace

Decoded<ParsedMessage> parse(std::string_view bytes) {
  if (std::ranges::count(bytes, ',') > maxValues) {
    return DecodeError{"too many values"};
  }
  auto envelope = decodeJson<MessageEnvelope>(bytes);
  if (!envelope) {
    return envelope.error();
  }
  switch (fromRawValue<MessageType>(envelope->type).value_or(MessageType::pong)) {
    case MessageType::pairRequest:
      return typed<PairRequestPayload>(bytes);
    case MessageType::deckSync:
      return typed<EmptyPayload>(bytes);
    case MessageType::ping:
      return typed<PingPayload>(bytes);
    case MessageType::appLaunch:
      return typed<AppActionPayload, AppLaunch>(bytes);
    case MessageType::appFocus:
      return typed<AppActionPayload, AppFocus>(bytes);
    case MessageType::actionRun:
      return typed<ActionRunPayload>(bytes);
    case MessageType::shortcutRun:
      return typed<ShortcutRunPayload>(bytes);
    case MessageType::appIconRequest:
      return typed<AppIconRequestPayload>(bytes);
    default:  // a type that only the agent sends, or none of the protocol
      return ParsedMessage(Unknown{std::move(envelope->type), envelope->id});
  }
}

}  // namespace glintboard::WireMessageParser
