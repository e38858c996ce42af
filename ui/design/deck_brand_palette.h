// SPDX-License-Identifier: MIT
// The brand's colours, all in sRGB.
#pragma once

#include <QColor>

#include "ui/design/appearance.h"

namespace glintboard::DeckBrandPalette {

// A colour by its components, each in 0 … 1.
struct RGB {
  double red = 0;
  double green = 0;
  double blue = 0;

  bool operator==(const RGB&) const = default;
  // The opaque colour.
  QColor color() const {
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                            static_cast<float>(blue));
  }
};

constexpr RGB accentLightComponents{0.761, 0.086, 0.404};
constexpr RGB accentDarkComponents{1.0, 0.302, 0.616};
// Of increased contrast.
constexpr RGB accentLightICComponents{0.431, 0.035, 0.22};
constexpr RGB accentDarkICComponents{1.0, 0.612, 0.788};
constexpr RGB accentTextComponents{0.169, 0.0, 0.082};
constexpr RGB successComponents{0.2, 0.78, 0.35};
constexpr RGB successTextComponents{0.1, 0.5, 0.22};
constexpr RGB warningComponents{1.0, 0.62, 0.04};
constexpr RGB warningTextComponents{0.72, 0.28, 0.05};
constexpr RGB dangerComponents{0.78, 0.12, 0.12};
constexpr RGB dangerVividComponents{1.0, 0.27, 0.23};
constexpr RGB inactiveComponents{0.56, 0.56, 0.58};

// The windows' neutrals, of the light and the dark appearance.
inline constexpr QColor lightWindowTop{0xFC, 0xF8, 0xFB};
inline constexpr QColor darkWindowTop{0x17, 0x12, 0x1A};
inline constexpr QColor lightWindowBottom{0xF3, 0xEA, 0xF0};
inline constexpr QColor darkWindowBottom{0x21, 0x18, 0x26};
inline constexpr QColor lightText{0x21, 0x16, 0x1D};
inline constexpr QColor darkText{0xF6, 0xF0, 0xF4};
inline constexpr QColor lightSecondaryText{0x5E, 0x4F, 0x59};
inline constexpr QColor darkSecondaryText{0xBD, 0xB1, 0xBB};

inline const QColor accentVivid = accentDarkComponents.color();
inline const QColor accentText = accentTextComponents.color();
inline const QColor accentLink = accentLightComponents.color();
inline const QColor success = successComponents.color();
inline const QColor successText = successTextComponents.color();
inline const QColor warning = warningComponents.color();
inline const QColor warningText = warningTextComponents.color();
inline const QColor danger = dangerComponents.color();
inline const QColor dangerVivid = dangerVividComponents.color();
inline const QColor inactive = inactiveComponents.color();

// `accentVivid` at an opacity of 0 … 1.
QColor accentGlow(double opacity);

// The accent that suits the appearance.
QColor accent(const Appearance& appearance);
RGB accentComponents(const Appearance& appearance);
// Of text and glyphs on the accent.
QColor onAccent(const Appearance& appearance);
RGB onAccentComponents(const Appearance& appearance);

}  // namespace glintboard::DeckBrandPalette
