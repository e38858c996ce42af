// SPDX-License-Identifier: MIT
// Revisions of icons.
#pragma once

#include <string>
#include <string_view>

namespace glintboard {

// The SHA-256 digest of `bytes` as 64 lower-case hexadecimal digits. Any thread.
std::string sha256Hex(std::string_view bytes);

}  // namespace glintboard
