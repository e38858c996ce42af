// SPDX-License-Identifier: MIT
// The contrast of two colours by the formula of WCAG 2.0.
#pragma once

#include "ui/design/deck_brand_palette.h"

namespace glintboard::WCAGContrast {

// 0 for black, 1 for white.
double relativeLuminance(const DeckBrandPalette::RGB& color);
// 1 … 21, in either order; text needs 4.5.
double contrastRatio(const DeckBrandPalette::RGB& a, const DeckBrandPalette::RGB& b);

}  // namespace glintboard::WCAGContrast
