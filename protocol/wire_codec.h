// SPDX-License-Identifier: MIT
// Messages to JSON text and back.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "protocol/json_reader.h"
#include "protocol/json_writer.h"
#include "protocol/wire_message.h"

namespace glintboard {

// A message that cannot be written: a text in it, such as an application's name, is not UTF-8.
class WireCodecError : public std::runtime_error {
 public:
  // The only way for a message to be unwritable.
  enum class Code { invalidUTF8 };
  explicit WireCodecError(Code given)
      : std::runtime_error("The message is not valid UTF-8."), code(given) {}
  Code code;
};

// The one codec of the protocol. Stateless; any thread.
namespace WireCodec {

// The JSON bytes of a message: keys in ascending order, no white space. UTF-8 is not checked.
template <class Payload>
std::string encode(const WireMessage<Payload>& message) {
  return jsonText(message);
}

// Returns `bytes` if they are UTF-8, else throws WireCodecError::invalidUTF8.
std::string checkedText(std::string bytes);

// The message as it goes out in a text frame: `encode`, then `checkedText`.
template <class Payload>
std::string encodeString(const WireMessage<Payload>& message) {
  return checkedText(encode(message));
}

// A message with a payload of the given type, or why the bytes are not one. The text in `type` is
// not checked: the caller has chosen the payload by it.
template <class Payload>
Decoded<WireMessage<Payload>> decode(std::string_view bytes) {
  return decodeJson<WireMessage<Payload>>(bytes);
}

}  // namespace WireCodec
}  // namespace glintboard
