// SPDX-License-Identifier: MIT
// Encodes images.
#pragma once

#include <QImage>
#include <optional>
#include <string>

namespace glintboard {

// The image as a PNG file; none for a null image. Equal images give equal bytes.
std::optional<std::string> pngData(const QImage& image);

}  // namespace glintboard
