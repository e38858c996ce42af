// SPDX-License-Identifier: MIT
#include "ui/design/theme.h"

#include "ui/design/deck_brand_palette.h"
#include "ui/design/deck_typography.h"
#include "ui/design/wcag_contrast.h"

namespace glintboard {

namespace {

static_assert(static_cast<int>(DeckTypography::TextStyle::caption2) == Theme::Caption2);
static_assert(static_cast<int>(DeckTypography::Weight::black) == Theme::Black);

// What light strokes, shadows and hovers are tints of.
const QColor ink = DeckBrandPalette::accentText;

QColor withAlpha(QColor color, double alpha) {
  color.setAlphaF(static_cast<float>(alpha));
  return color;
}

// `over` laid on an opaque `background`.
QColor blended(const QColor& over, const QColor& background) {
  const float alpha = over.alphaF();
  const auto mix = [alpha](float top, float bottom) { return top * alpha + bottom * (1 - alpha); };
  return QColor::fromRgbF(mix(over.redF(), background.redF()),
                          mix(over.greenF(), background.greenF()),
                          mix(over.blueF(), background.blueF()));
}

DeckBrandPalette::RGB componentsOf(const QColor& color) {
  return {color.redF(), color.greenF(), color.blueF()};
}

}  // namespace

void Theme::setAppearance(const Appearance& appearance) {
  if (appearance == appearance_) {
    return;
  }
  appearance_ = appearance;
  fonts_.setTextScale(appearance.textScale);
  Q_EMIT appearanceChanged();
}

QColor Theme::accentGlow(double opacity) {
  return DeckBrandPalette::accentGlow(opacity);
}

QColor Theme::faded(QColor color, double opacity) {
  return withAlpha(color, color.alphaF() * opacity);
}

QColor Theme::inkOn(const QColor& background) {
  const DeckBrandPalette::RGB white{1, 1, 1};
  const auto& dark = DeckBrandPalette::accentTextComponents;
  const auto components = componentsOf(background);
  return WCAGContrast::contrastRatio(white, components) >=
                 WCAGContrast::contrastRatio(dark, components)
             ? white.color()
             : dark.color();
}

QColor Theme::windowTop() const {
  return dark() ? DeckBrandPalette::darkWindowTop : DeckBrandPalette::lightWindowTop;
}

QColor Theme::windowBottom() const {
  return dark() ? DeckBrandPalette::darkWindowBottom : DeckBrandPalette::lightWindowBottom;
}

QColor Theme::surface() const {
  if (increasedContrast()) {
    return solidSurface();
  }
  return withAlpha(Qt::white, dark() ? 0.06 : 0.85);
}

QColor Theme::solidSurface() const {
  // On the end of the window's background that is nearer to the text.
  return blended(withAlpha(Qt::white, dark() ? 0.06 : 0.85), windowBottom());
}

QColor Theme::stroke() const {
  return withAlpha(dark() ? QColor(Qt::white) : ink, increasedContrast() ? 0.6 : 0.1);
}

QColor Theme::hover() const {
  return withAlpha(dark() ? QColor(Qt::white) : ink, 0.05);
}

QColor Theme::pressed() const {
  return withAlpha(dark() ? QColor(Qt::white) : ink, 0.09);
}

QColor Theme::shadow() const {
  return dark() ? withAlpha(Qt::black, 0.45) : withAlpha(ink, 0.14);
}

QColor Theme::text() const {
  return dark() ? DeckBrandPalette::darkText : DeckBrandPalette::lightText;
}

QColor Theme::secondaryText() const {
  if (increasedContrast()) {
    return text();
  }
  return dark() ? DeckBrandPalette::darkSecondaryText : DeckBrandPalette::lightSecondaryText;
}

QColor Theme::accent() const {
  return DeckBrandPalette::accent(appearance_);
}

QColor Theme::onAccent() const {
  return DeckBrandPalette::onAccent(appearance_);
}

QColor Theme::dangerText() const {
  return dark() ? DeckBrandPalette::dangerVivid : DeckBrandPalette::danger;
}

QColor Theme::warningText() const {
  return dark() ? DeckBrandPalette::warning : DeckBrandPalette::warningText;
}

QColor Theme::successText() const {
  // The brand's green is legible on white; the light background wants it a little darker.
  return dark() ? DeckBrandPalette::success
                : blended(withAlpha(ink, 0.1), DeckBrandPalette::successText);
}

QColor Theme::accentVivid() {
  return DeckBrandPalette::accentVivid;
}
QColor Theme::accentText() {
  return DeckBrandPalette::accentText;
}
QColor Theme::accentPale() {
  return DeckBrandPalette::accentDarkICComponents.color();
}
QColor Theme::darkGround() {
  return DeckBrandPalette::darkWindowTop;
}
QColor Theme::success() {
  return DeckBrandPalette::success;
}
QColor Theme::warning() {
  return DeckBrandPalette::warning;
}
QColor Theme::danger() {
  return DeckBrandPalette::danger;
}
QColor Theme::dangerVivid() {
  return DeckBrandPalette::dangerVivid;
}
QColor Theme::inactive() {
  return DeckBrandPalette::inactive;
}

QString Theme::teachingCaption() {
  return DeckTypography::teachingCaption();
}

}  // namespace glintboard
