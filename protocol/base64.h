// SPDX-License-Identifier: MIT
// Binary data in JSON texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glintboard {

// Encodes as standard Base64 (RFC 4648, section 4) with padding and without line breaks. Any
// thread.
std::string base64Encode(std::string_view bytes);

// The bytes of standard Base64; none if the length is no multiple of four or a character is not of
// the alphabet. Any thread.
std::optional<std::string> base64Decode(std::string_view text);

}  // namespace glintboard
