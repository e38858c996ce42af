// SPDX-License-Identifier: MIT
#include "ui/design/symbols.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <array>

#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "protocol/deck_tile.h"

namespace glintboard {
namespace {

QImage drawn(const QString& name) {
  QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  Symbols::draw(painter, name, image.rect(), Qt::red);
  return image;
}

// The fraction of the square that is drawn; expects all of it to be red.
double covered(const QImage& image) {
  int marked = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      marked += pixel.alpha() > 127 ? 1 : 0;
      EXPECT_TRUE(pixel.alpha() < 16 || (pixel.red() > 200 && pixel.blue() == 0));
    }
  }
  return marked / (64.0 * 64);
}

QString text(std::string_view view) {
  return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
}

TEST(Symbols, HasADrawingForEveryUsedName) {
  QStringList used{"checkmark",
                   "exclamationmark.shield",
                   "exclamationmark.triangle.fill",
                   "iphone.gen3",
                   "lock.fill",
                   "magnifyingglass",
                   "minus",
                   "rectangle.grid.2x2",
                   "slider.horizontal.3",
                   text(DeckTile::shortcutSymbolName),
                   text(ShortcutsCatalog::heroRecipeSymbolName)};
  for (const auto& [action, id] : EnumText<BuiltinAction>::table) {
    used += text(symbolName(action));
  }
  for (const auto& name : used) {
    EXPECT_TRUE(Symbols::isKnown(name)) << name.toStdString();
  }
}

TEST(Symbols, DrawsEachSymbolDifferently) {
  QList<QImage> images;
  for (const auto& name : Symbols::names()) {
    images.append(drawn(name));
    EXPECT_GT(covered(images.back()), 0.02) << name.toStdString();
    EXPECT_LT(covered(images.back()), 0.8) << name.toStdString();
    EXPECT_FALSE(images.sliced(0, images.size() - 1).contains(images.back())) << name.toStdString();
  }
  EXPECT_EQ(drawn("no.such.symbol"), drawn("questionmark"));
}

}  // namespace
}  // namespace glintboard
