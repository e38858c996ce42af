// SPDX-License-Identifier: MIT
#include "ui/design/wcag_contrast.h"

#include <algorithm>
#include <cmath>

namespace glintboard::WCAGContrast {

namespace {

double linear(double component) {
  // The threshold of the published text, which later editions corrected to 0.04045.
  return component <= 0.03928 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

}  // namespace

double relativeLuminance(const DeckBrandPalette::RGB& color) {
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

double contrastRatio(const DeckBrandPalette::RGB& a, const DeckBrandPalette::RGB& b) {
  const auto [darker, lighter] = std::minmax({relativeLuminance(a), relativeLuminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace glintboard::WCAGContrast
