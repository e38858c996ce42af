// SPDX-License-Identifier: MIT
// Reads the messages that phones send. Stateless; any thread.
#pragma once

#include <string_view>
#include <variant>

#include "protocol/json_reader.h"
#include "protocol/payloads.h"
#include "protocol/wire_message.h"

namespace glintboard::WireMessageParser {

// A message of a type that the agent does not accept: one that only the agent sends, or none of the
// protocol. It gets no reply.
struct Unknown {
  std::string type;
  Uuid id{};
};

// Wrappers that tell the two types with the same payload apart.
struct AppLaunch {
  WireMessage<AppActionPayload> message;
};
struct AppFocus {
  WireMessage<AppActionPayload> message;
};
// One alternative for each type that the agent accepts, and `Unknown`.
using ParsedMessage =
    std::variant<WireMessage<PairRequestPayload>, WireMessage<EmptyPayload>,
                 WireMessage<PingPayload>, AppLaunch, AppFocus, WireMessage<ActionRunPayload>,
                 WireMessage<ShortcutRunPayload>, WireMessage<AppIconRequestPayload>, Unknown>;

// Reads `type` and `id` first, then the payload of that type. Fails if either does not decode, or
// if the text has more values than any phone needs, which bounds the memory that a message can
// take. A type that is not accepted is no failure. Never throws but std::bad_alloc.
Decoded<ParsedMessage> parse(std::string_view bytes);

}  // namespace glintboard::WireMessageParser
