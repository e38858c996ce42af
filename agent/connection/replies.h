// SPDX-License-Identifier: MIT
// The replies to one message, as they are sent.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "protocol/wire_codec.h"
#include "protocol/wire_message_parser.h"

namespace glintboard {

// Encoded replies in the order in which they are sent; empty when nothing is to be sent.
using Replies = std::vector<std::string>;

// One encoded reply. Throws WireCodecError.
template <class Payload>
Replies oneReply(const WireMessage<Payload>& reply) {
  Replies replies;
  replies.push_back(WireCodec::encodeString(reply));
  return replies;
}

template <class... Alternatives>
Replies oneReply(const std::variant<Alternatives...>& response) {
  return std::visit([](const auto& reply) { return oneReply(reply); }, response);
}

// The replies to a message whose sender is not paired: a coded error for requests that have one,
// nothing for the others. Throws WireCodecError.
Replies refusalOf(const WireMessageParser::ParsedMessage& message);

}  // namespace glintboard
