// SPDX-License-Identifier: MIT
// Encodes a text as a QR code.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace glintboard {

struct QRCode {
  int width = 0;           // modules on each side, without a quiet zone
  std::vector<bool> dark;  // row by row

  // Modules outside the code are light.
  bool isDark(int x, int y) const {
    return x >= 0 && y >= 0 && x < width && y < width &&
           dark[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                static_cast<std::size_t>(x)];
  }
};

// Encodes the bytes of `text` at error correction level M. None when it is empty or too long.
std::optional<QRCode> encodeQRCode(const std::string& text);

}  // namespace glintboard
