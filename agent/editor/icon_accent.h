// The colour that an icon lends to its card and key.
#pragma once

#include <QColor>
#include <QImage>
#include <optional>

namespace glintboard {

// For an icon that has no colour to lend.
QColor fallbackAccent();

// The image's average colour, in which colourful pixels count for more than grey ones, made
// saturated and bright enough to tint glass. None for an image without an opaque pixel. Looks at
// an 8 × 8 copy only. Any thread.
std::optional<QColor> accentColor(const QImage& image);

}  // namespace glintboard
