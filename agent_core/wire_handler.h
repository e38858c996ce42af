// SPDX-License-Identifier: MIT
// What the wire handlers share: raw bytes in, raw bytes out.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "protocol/wire_codec.h"

namespace glintboard {

// The two fields that are read before the payload.
using IncomingWireEnvelope = MessageEnvelope;

// The bytes of the reply, or none when the message is not the handler's; an error when the bytes
// cannot be decoded.
using WireReply = Decoded<std::optional<std::string>>;

// The bytes of whichever reply a handler gave.
template <class Response>
std::optional<std::string> encodedReply(const Response& response) {
  return std::visit([](const auto& message) { return WireCodec::encode(message); }, response);
}

}  // namespace glintboard
