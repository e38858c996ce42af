// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glintboard {

// Standard Base64 (RFC 4648, section 4) with padding and without line breaks.
std::string base64Encode(std::string_view bytes);

// The bytes of standard Base64, or none when the text is not that.
std::optional<std::string> base64Decode(std::string_view text);

}  // namespace glintboard
