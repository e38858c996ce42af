// SPDX-License-Identifier: MIT
// The brand's type: three families, and the system's monospaced font.
#pragma once

#include <QFont>
#include <QString>
#include <optional>

namespace glintboard::DeckTypography {

enum class Family { ui, display, hand };
enum class Weight { ultraLight, thin, light, regular, medium, semibold, bold, heavy, black };
enum class TextStyle {
  largeTitle,
  title,
  title2,
  title3,
  headline,
  body,
  callout,
  subheadline,
  footnote,
  caption,
  caption2,
};

// The sentence that teaches what a deck is.
QString teachingCaption();

// The family's text value.
QString rawValue(Family family);
// 100 … 900.
int number(Weight weight);
// In points, before the user's text scale.
double baseSize(TextStyle style);

// Registers the module's fonts with this process, once; needs a QGuiApplication. Returns false when
// a font file could not be loaded: the functions below then fall back to the system's font.
bool registerFonts();
// Whether a font of that PostScript name is available.
bool isPostScriptAvailable(const QString& name);
QString postScriptName(Family family, Weight weight);

// Fonts of a text style. `textScale` is the user's; sizes are device-independent pixels.
// Main thread only.
QFont ui(TextStyle style, Weight weight = Weight::regular, double textScale = 1);
QFont keyLabel(TextStyle style, Weight weight = Weight::regular, double textScale = 1);
QFont hero(TextStyle style, Weight weight = Weight::bold, double textScale = 1);
QFont handCaption(TextStyle style, Weight weight = Weight::regular, double textScale = 1);
QFont mono(TextStyle style, Weight weight = Weight::regular, double textScale = 1);

// Fonts of a size in pixels. They scale with the user's text size when they are relative to a
// style.
QFont ui(double size, Weight weight, std::optional<TextStyle> relativeTo, double textScale = 1);
QFont keyLabel(double size, Weight weight, std::optional<TextStyle> relativeTo,
               double textScale = 1);
QFont hero(double size, Weight weight, std::optional<TextStyle> relativeTo, double textScale = 1);
QFont handCaption(double size, Weight weight, std::optional<TextStyle> relativeTo,
                  double textScale = 1);
QFont mono(double size, Weight weight);

}  // namespace glintboard::DeckTypography
