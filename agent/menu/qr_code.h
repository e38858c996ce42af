// SPDX-License-Identifier: MIT
// A text as the modules of a QR code.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace glintboard {

struct QRCode {
  int width = 0;           // modules on each side, without a quiet zone
  std::vector<bool> dark;  // row by row

  // What lies outside is light.
  bool isDark(int x, int y) const {
    return x >= 0 && y >= 0 && x < width && y < width &&
           dark[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                static_cast<std::size_t>(x)];
  }
};

// The bytes of `text` at error correction level M; nothing when it is empty or too long.
std::optional<QRCode> encodeQRCode(const std::string& text);

}  // namespace glintboard
