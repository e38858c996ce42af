// SPDX-License-Identifier: MIT
#include "agent/menu/qr_code_image.h"

#include <cmath>

#include "agent/menu/qr_code.h"

namespace glintboard::QRCodeImage {
namespace {

constexpr int margin = 1;  // modules on each side

}  // namespace

QImage make(const QString& text, qreal sideLength, qreal devicePixelRatio) {
  const auto code = encodeQRCode(text.toStdString());
  const int pixels = static_cast<int>(std::lround(sideLength * devicePixelRatio));
  if (!code || pixels <= 0) {
    return {};
  }
  const int modules = code->width + 2 * margin;
  QImage image(pixels, pixels, QImage::Format_RGB32);
  for (int y = 0; y < pixels; ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
    const int row = y * modules / pixels - margin;
    for (int x = 0; x < pixels; ++x) {
      const int column = x * modules / pixels - margin;
      line[x] = code->isDark(column, row) ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
    }
  }
  image.setDevicePixelRatio(devicePixelRatio);
  return image;
}

}  // namespace glintboard::QRCodeImage
