// SPDX-License-Identifier: MIT
// QR codes as pictures.
#pragma once

#include <QImage>
#include <QString>

namespace glintboard::QRCodeImage {

// The side of the picture that stands for a pairing address, in points.
inline constexpr int usualSide = 180;

// The UTF-8 bytes of `text` as a QR code, black on white, over a square of `sideLength` points with
// `devicePixelRatio` pixels each. Every module ends between two pixels, and a margin of one module
// belongs to the picture. Null when the text is empty or too long.
QImage make(const QString& text, qreal sideLength = usualSide, qreal devicePixelRatio = 1);

}  // namespace glintboard::QRCodeImage
