// SPDX-License-Identifier: MIT
// Draws QR codes as images.
#pragma once

#include <QImage>
#include <QString>

namespace glintboard::QRCodeImage {

// The side of a pairing address's image, in points.
inline constexpr int usualSide = 180;

// The UTF-8 bytes of `text` as a QR code, black on white, over a square of `sideLength` points with
// `devicePixelRatio` pixels each. Modules end on pixel boundaries. The image includes a margin of
// one module. Null when the text is empty or too long.
QImage make(const QString& text, qreal sideLength = usualSide, qreal devicePixelRatio = 1);

}  // namespace glintboard::QRCodeImage
