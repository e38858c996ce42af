// SPDX-License-Identifier: MIT
// The icon of a key.
#pragma once

#include <string>

namespace glintboard {

// An icon as it is sent to the phone.
struct Icon {
  std::string revision;  // SHA-256 of the data, 64 lower-case hexadecimal digits
  std::string data;      // PNG
};

// Width and height of every icon, in pixels.
inline constexpr int iconSide = 128;

}  // namespace glintboard
