#include "agent/shell/qr_text.h"

#include <qrencode.h>

#include <memory>

namespace glintboard {
namespace {

constexpr int quietZone = 4;  // modules on each side

struct FreeQRcode {
  void operator()(QRcode* code) const { QRcode_free(code); }
};

bool isDark(const QRcode& code, int x, int y) {
  return x >= 0 && y >= 0 && x < code.width && y < code.width &&
         (code.data[y * code.width + x] & 1) != 0;
}

const char* halfBlocks(bool upper, bool lower) {
  if (upper) {
    return lower ? "\u2588" : "\u2580";
  }
  return lower ? "\u2584" : " ";
}

}  // namespace

std::string qrHalfBlocks(const std::string& text) {
  const std::unique_ptr<QRcode, FreeQRcode> code(
      QRcode_encodeData(static_cast<int>(text.size()),
                        reinterpret_cast<const unsigned char*>(text.data()), 0, QR_ECLEVEL_M));
  std::string drawing;
  if (!code) {
    return drawing;
  }
  for (int y = -quietZone; y < code->width + quietZone; y += 2) {
    drawing += "\033[38;5;16m\033[48;5;231m";
    for (int x = -quietZone; x < code->width + quietZone; ++x) {
      drawing += halfBlocks(isDark(*code, x, y), isDark(*code, x, y + 1));
    }
    drawing += "\033[0m\n";
  }
  return drawing;
}

}  // namespace glintboard
