// SPDX-License-Identifier: MIT
// Paints the layers of a glass tile. Any thread.
#pragma once

#include <QColor>
#include <QRectF>

#include "ui/tile/glass_rim_shape.h"

class QPainter;

namespace glintboard {

// The rounded face in a gradient from top to bottom, darker towards its lower edge.
void paintGlassFace(QPainter& painter, const QRectF& face, qreal radius, const QColor& top,
                    const QColor& bottom);
// The highlight on the upper part of the face, with a curved lower edge.
void paintGlassHighlight(QPainter& painter, const QRectF& face, qreal radius);
// The bright edge of the glass; a dashed line for a key whose application or Shortcut is gone.
void paintGlassRim(QPainter& painter, const QRectF& face, const GlassRimShape& rim, bool dashed);

// The colour with most of its saturation removed.
QColor desaturated(const QColor& color);
// The colours of the dark face behind an icon, tinted with the icon's accent.
QColor iconFaceTop(const QColor& accent);
QColor iconFaceBottom(const QColor& accent);

}  // namespace glintboard
