// SPDX-License-Identifier: MIT
#include "ui/tile/glass_layers.h"

#include <QPainter>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <cmath>

#include "ui/design/deck_typography.h"
#include "ui/design/symbols.h"
#include "ui/tile/glass_painter.h"

namespace glintboard {

namespace {

bool isOneCharacter(const QString& text) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  return finder.toNextBoundary() == text.size();
}

}  // namespace

void GlassFace::paint(QPainter* painter) {
  QColor top = behindIcon_ ? iconFaceTop(upper_) : upper_;
  QColor bottom = behindIcon_ ? iconFaceBottom(upper_) : lower_;
  if (missing()) {
    top = desaturated(top);
    bottom = desaturated(bottom);
  }
  paintGlassFace(*painter, boundingRect(), radius(), top, bottom);
}

void GlassHighlight::paint(QPainter* painter) {
  paintGlassHighlight(*painter, boundingRect(), radius());
}

void GlassRim::paint(QPainter* painter) {
  paintGlassRim(*painter, boundingRect(), {radius(), bandWidth_, edgeInset_}, missing());
}

void TileGlyph::setIcon(const QVariant& value) {
  const auto icon = value.value<QImage>();
  if (icon.cacheKey() != icon_.cacheKey()) {
    icon_ = icon;
    Q_EMIT changed();
  }
}

void TileGlyph::paint(QPainter* painter) {
  const QRectF area = boundingRect().adjusted(margin(), margin(), -margin(), -margin());
  if (!icon_.isNull()) {
    paintIcon(*painter, area);
    return;
  }
  paintGlyph(*painter, area.translated(0, margin()), QColor(0, 0, 0, 70));
  paintGlyph(*painter, area, color_);
}

void TileGlyph::paintIcon(QPainter& painter, const QRectF& area) const {
  // Scaled to the pixels of the screen at once: the painter's own scaling is coarse.
  const double scale = painter.deviceTransform().m11();
  const int side = static_cast<int>(std::lround(std::min(area.width(), area.height()) * scale));
  QImage image = icon_.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  if (missing()) {
    const QImage alpha = image.convertToFormat(QImage::Format_Alpha8);
    image = image.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
    image.setAlphaChannel(alpha);
  }
  QRectF target(QPointF(), QSizeF(image.size()) / scale);
  target.moveCenter(area.center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(target, image);
}

void TileGlyph::paintGlyph(QPainter& painter, const QRectF& area, const QColor& color) const {
  if (glyph_.isEmpty()) {
    return;
  }
  if (!isOneCharacter(glyph_)) {
    Symbols::draw(painter, glyph_, area, color, Symbols::Fit::drawing);
    return;
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(color);
  painter.setFont(DeckTypography::ui(area.height(), DeckTypography::Weight::bold, {}));
  painter.drawText(area.adjusted(-area.width(), -area.height(), area.width(), area.height()),
                   Qt::AlignCenter, glyph_);
}

}  // namespace glintboard
