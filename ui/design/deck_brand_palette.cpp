// SPDX-License-Identifier: MIT
#include "ui/design/deck_brand_palette.h"

namespace glintboard::DeckBrandPalette {

QColor accentGlow(double opacity) {
  QColor glow = accentVivid;
  glow.setAlphaF(static_cast<float>(opacity));
  return glow;
}

RGB accentComponents(const Appearance& appearance) {
  if (appearance.dark) {
    return appearance.increasedContrast ? accentDarkICComponents : accentDarkComponents;
  }
  return appearance.increasedContrast ? accentLightICComponents : accentLightComponents;
}

QColor accent(const Appearance& appearance) {
  return accentComponents(appearance).color();
}

RGB onAccentComponents(const Appearance& appearance) {
  return appearance.dark ? accentTextComponents : RGB{1, 1, 1};
}

QColor onAccent(const Appearance& appearance) {
  return onAccentComponents(appearance).color();
}

}  // namespace glintboard::DeckBrandPalette
