// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "ui/design/deck_brand_palette.h"
#include "ui/design/theme.h"
#include "ui/design/wcag_contrast.h"

namespace glintboard {
namespace {

using DeckBrandPalette::RGB;

RGB componentsOf(const QColor& color) {
  return {color.redF(), color.greenF(), color.blueF()};
}

// `over` blended onto an opaque `background`.
RGB seenOn(const QColor& over, const RGB& background) {
  const double alpha = over.alphaF();
  return {over.redF() * alpha + background.red * (1 - alpha),
          over.greenF() * alpha + background.green * (1 - alpha),
          over.blueF() * alpha + background.blue * (1 - alpha)};
}

TEST(WCAGContrast, FollowsThePublishedFormula) {
  const RGB white{1, 1, 1};
  const RGB black{};
  EXPECT_DOUBLE_EQ(WCAGContrast::contrastRatio(white, black), 21);
  EXPECT_DOUBLE_EQ(WCAGContrast::contrastRatio(black, white), 21);
  EXPECT_DOUBLE_EQ(WCAGContrast::relativeLuminance({0.03928, 0.03928, 0.03928}), 0.03928 / 12.92);
  // Above the threshold the formula uses a power.
  EXPECT_NEAR(WCAGContrast::relativeLuminance({0.04, 0.04, 0.04}), 0.003096, 1e-6);
  EXPECT_NEAR(WCAGContrast::relativeLuminance({0, 1, 0}), 0.7152, 1e-12);
}

TEST(Theme, TextHasEnoughContrastInEveryAppearance) {
  Theme look;
  for (const bool dark : {false, true}) {
    for (const bool increasedContrast : {false, true}) {
      look.setAppearance({dark, increasedContrast, false, 1});
      for (const auto& window : {look.windowTop(), look.windowBottom()}) {
        const RGB background = componentsOf(window);
        const RGB panel = seenOn(look.surface(), background);
        const RGB solid = componentsOf(look.solidSurface());
        const RGB hovered = seenOn(look.hover(), panel);
        const std::vector<RGB> still{background, panel, solid};
        const auto hoveredInDanger =
            seenOn(Theme::faded(look.dangerText(), look.hover().alphaF()), background);
        const std::vector<RGB> rows{background, hoveredInDanger};
        const std::vector<RGB> all{background, panel, solid, hovered,
                                   seenOn(look.pressed(), panel)};
        const std::tuple<const char*, QColor, const std::vector<RGB>&> inks[] = {
            {"text", look.text(), all},
            {"secondaryText", look.secondaryText(), all},
            {"dangerText", look.dangerText(), rows},
            {"accent", look.accent(), still},
            {"successText", look.successText(), still},
            {"warningText", look.warningText(), still}};
        for (const auto& [name, ink, grounds] : inks) {
          for (std::size_t i = 0; i < grounds.size(); ++i) {
            EXPECT_GE(WCAGContrast::contrastRatio(componentsOf(ink), grounds[i]), 4.5)
                << name << " on background " << i << (dark ? ", dark" : ", light")
                << (increasedContrast ? ", increased contrast" : "");
          }
        }
      }
      EXPECT_GE(
          WCAGContrast::contrastRatio(componentsOf(look.onAccent()), componentsOf(look.accent())),
          4.5);
    }
  }
}

TEST(Theme, ReplacesMovementByFadesUnderReducedMotion) {
  Theme look;
  int changes = 0;
  QObject::connect(&look, &Theme::appearanceChanged, [&] { ++changes; });
  look.setAppearance({false, false, true, 1});
  look.setAppearance({false, false, true, 1});
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(look.moveTime(), 0);
  EXPECT_EQ(look.pressTime(), 0);
  EXPECT_GT(Theme::fadeTime(), 0);
}

}  // namespace
}  // namespace glintboard
