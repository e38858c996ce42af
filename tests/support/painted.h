// SPDX-License-Identifier: MIT
// Pictures of one colour.
#pragma once

#include <QImage>
#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace glintboard::test {

inline QImage painted(const QColor& color, QSize size = {64, 64}) {
  QImage image(size, QImage::Format_ARGB32);
  image.fill(color);
  return image;
}

// Saves such a picture below a folder, in the format of its name; returns its path.
inline std::filesystem::path paint(const TemporaryFolder& folder, const std::string& file,
                                   const QColor& color, QSize size = {64, 64}) {
  const auto path = folder.write(file, "");
  if (!painted(color, size).save(QString::fromStdString(path.string()))) {
    throw std::runtime_error("no picture: " + file);
  }
  return path;
}

}  // namespace glintboard::test
