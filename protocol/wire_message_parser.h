// SPDX-License-Identifier: MIT
// What a phone sent.
#pragma once

#include <string_view>
#include <variant>

#include "protocol/json_reader.h"
#include "protocol/payloads.h"
#include "protocol/wire_message.h"

namespace glintboard::WireMessageParser {

// A message of a type that the agent does not accept.
struct Unknown {
  std::string type;
  Uuid id{};
};

// One alternative for each type that the agent accepts. `app.launch` and `app.focus` carry the
// same payload, hence the two wrappers.
struct AppLaunch {
  WireMessage<AppActionPayload> message;
};
struct AppFocus {
  WireMessage<AppActionPayload> message;
};
using ParsedMessage =
    std::variant<WireMessage<PairRequestPayload>, WireMessage<EmptyPayload>,
                 WireMessage<PingPayload>, AppLaunch, AppFocus, WireMessage<ActionRunPayload>,
                 WireMessage<ShortcutRunPayload>, WireMessage<AppIconRequestPayload>, Unknown>;

// Reads `type` and `id` first, then the payload of that type. Fails when either does not decode;
// a type that is not accepted is no failure.
Decoded<ParsedMessage> parse(std::string_view bytes);

}  // namespace glintboard::WireMessageParser
