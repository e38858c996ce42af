// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <optional>
#include <string>

namespace glintboard {

// The image as a PNG file, or none for a null image. The bytes are the same for equal images.
std::optional<std::string> pngData(const QImage& image);

}  // namespace glintboard
