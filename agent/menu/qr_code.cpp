// SPDX-License-Identifier: MIT
#include "agent/menu/qr_code.h"

#include <qrencode.h>

#include <memory>

namespace glintboard {
namespace {

struct FreeQRcode {
  void operator()(QRcode* code) const { QRcode_free(code); }
};

}  // namespace

std::optional<QRCode> encodeQRCode(const std::string& text) {
  const std::unique_ptr<QRcode, FreeQRcode> code(
      QRcode_encodeData(static_cast<int>(text.size()),
                        reinterpret_cast<const unsigned char*>(text.data()), 0, QR_ECLEVEL_M));
  if (!code) {
    return std::nullopt;
  }
  QRCode result{code->width, {}};
  const auto modules =
      static_cast<std::size_t>(code->width) * static_cast<std::size_t>(code->width);
  result.dark.reserve(modules);
  for (std::size_t i = 0; i < modules; ++i) {
    result.dark.push_back((code->data[i] & 1) != 0);
  }
  return result;
}

}  // namespace glintboard
