// SPDX-License-Identifier: MIT
#include "agent_core/icons/png.h"

#include <QBuffer>
#include <QByteArray>

namespace glintboard {

std::optional<std::string> pngData(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG")) {
    return std::nullopt;
  }
  return bytes.toStdString();
}

}  // namespace glintboard
