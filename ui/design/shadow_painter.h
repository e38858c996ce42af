// SPDX-License-Identifier: MIT
// Soft shadows without shader effects.
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace glintboard {

// Paints the shadow of a rounded rectangle over `shape`. It fades out within `blur` pixels outside.
void paintShadow(QPainter& painter, const QRectF& shape, qreal radius, qreal blur,
                 const QColor& color);

}  // namespace glintboard
