// SPDX-License-Identifier: MIT
#include "agent/menu/tray_icon.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "ui/design/deck_brand_palette.h"

namespace glintboard {
namespace {

// Makes the keys visible on a light panel.
QColor rimColor() {
  QColor color = DeckBrandPalette::lightText;
  color.setAlpha(0xB0);
  return color;
}

constexpr double roundness = 3.5;  // the side of a key divided by its corner radius

// The rectangles of the keys in a square of `size` pixels: two rows, every edge on a pixel
// boundary.
std::array<QRectF, 4> keysIn(int size) {
  const int between = std::max(2, size / 11);
  const int key = (size - size / 20 - between) / 2;
  const int margin = (size - 2 * key - between) / 2;
  const int next = margin + key + between;
  return {QRectF(margin, margin, key, key), QRectF(next, margin, key, key),
          QRectF(margin, next, key, key), QRectF(next, next, key, key)};
}

constexpr std::size_t litKey = 1;

}  // namespace

QImage trayImage(int size) {
  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const int border = std::max(1, size / 24);
  const auto keys = keysIn(size);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const qreal radius = keys[i].width() / roundness;
    painter.setBrush(rimColor());
    painter.drawRoundedRect(keys[i], radius, radius);
    painter.setBrush(i == litKey ? DeckBrandPalette::accentVivid : DeckBrandPalette::darkText);
    const auto inner = keys[i].adjusted(border, border, -border, -border);
    painter.drawRoundedRect(inner, radius - border * 0.7, radius - border * 0.7);
  }
  return image;
}

QImage markImage(int size, const QColor& key, const QColor& lit) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const auto keys = keysIn(size);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    painter.setBrush(i == litKey ? lit : key);
    const qreal radius = keys[i].width() / roundness;
    painter.drawRoundedRect(keys[i], radius, radius);
  }
  return image;
}

std::vector<QImage> trayImages() {
  std::vector<QImage> images;
  for (const int size : {16, 22, 24, 32, 48, 64}) {
    images.push_back(trayImage(size));
  }
  return images;
}

}  // namespace glintboard
