// SPDX-License-Identifier: MIT
#include "agent/menu/qr_text.h"

#include "agent/menu/qr_code.h"

namespace glintboard {
namespace {

constexpr int quietZone = 4;  // modules on each side

const char* halfBlocks(bool upper, bool lower) {
  if (upper) {
    return lower ? "\u2588" : "\u2580";
  }
  return lower ? "\u2584" : " ";
}

}  // namespace

std::string qrHalfBlocks(const std::string& text) {
  std::string drawing;
  const auto code = encodeQRCode(text);
  if (!code) {
    return drawing;
  }
  for (int y = -quietZone; y < code->width + quietZone; y += 2) {
    drawing += "\033[38;5;16m\033[48;5;231m";
    for (int x = -quietZone; x < code->width + quietZone; ++x) {
      drawing += halfBlocks(code->isDark(x, y), code->isDark(x, y + 1));
    }
    drawing += "\033[0m\n";
  }
  return drawing;
}

}  // namespace glintboard
