// SPDX-License-Identifier: MIT
// Messages to text and back.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "protocol/wire_message.h"

namespace glintboard {

// A message that cannot be written.
class WireCodecError : public std::runtime_error {
 public:
  enum class Code { invalidUTF8 };
  explicit WireCodecError(Code given)
      : std::runtime_error("The message is not valid UTF-8."), code(given) {}
  Code code;
};

// The one codec of the protocol. Stateless; any thread.
namespace WireCodec {

// The JSON bytes of a message: keys in ascending order, no white space.
template <class Payload>
std::string encode(const WireMessage<Payload>& message) {
  return jsonText(message);
}

// Throws WireCodecError when a text in the message is not UTF-8.
std::string checkedText(std::string bytes);

// The message as it goes out in a text frame. Throws WireCodecError::invalidUTF8.
template <class Payload>
std::string encodeString(const WireMessage<Payload>& message) {
  return checkedText(encode(message));
}

// A message with a payload of the given type, or why the bytes are not one. The message's own
// `type` is not compared with anything.
template <class Payload>
Decoded<WireMessage<Payload>> decode(std::string_view bytes) {
  return decodeJson<WireMessage<Payload>>(bytes);
}

}  // namespace WireCodec
}  // namespace glintboard
