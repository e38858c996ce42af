// SPDX-License-Identifier: MIT
#include "ui/design/theme_fonts.h"

#include "ui/design/deck_typography.h"

namespace glintboard {

namespace {

DeckTypography::TextStyle styleOf(int value) {
  return static_cast<DeckTypography::TextStyle>(value);
}

DeckTypography::Weight weightOf(int value) {
  return static_cast<DeckTypography::Weight>(value);
}

}  // namespace

QFont ThemeFonts::ui(int style, int weight) const {
  return DeckTypography::ui(styleOf(style), weightOf(weight), textScale_);
}

QFont ThemeFonts::hero(int style, int weight) const {
  return DeckTypography::hero(styleOf(style), weightOf(weight), textScale_);
}

QFont ThemeFonts::handCaption(int style, int weight) const {
  return DeckTypography::handCaption(styleOf(style), weightOf(weight), textScale_);
}

QFont ThemeFonts::mono(int style, int weight, double tracking) const {
  QFont font = DeckTypography::mono(styleOf(style), weightOf(weight), textScale_);
  font.setLetterSpacing(QFont::AbsoluteSpacing, tracking * font.pixelSize());
  return font;
}

QFont ThemeFonts::uiSized(double size, int weight, bool scales) const {
  return DeckTypography::ui(size, weightOf(weight),
                            scales ? std::optional(DeckTypography::TextStyle::body) : std::nullopt,
                            textScale_);
}

}  // namespace glintboard
