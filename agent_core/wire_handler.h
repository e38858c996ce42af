// SPDX-License-Identifier: MIT
// The types that the wire handlers share. They turn the bytes of a request into those of a reply.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "protocol/wire_codec.h"

namespace glintboard {

// The fields of a message that are decoded before its payload.
using IncomingWireEnvelope = MessageEnvelope;

// The bytes of the reply; none for a message of another handler; an error for bytes that cannot be
// decoded.
using WireReply = Decoded<std::optional<std::string>>;

// Encodes a reply, which is a variant of messages.
template <class Response>
std::optional<std::string> encodedReply(const Response& response) {
  return std::visit([](const auto& message) { return WireCodec::encode(message); }, response);
}

}  // namespace glintboard
