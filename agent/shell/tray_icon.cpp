#include "agent/shell/tray_icon.h"

#include <QPainter>
#include <algorithm>

namespace glintboard {
namespace {

constexpr QColor face{0xF6, 0xF0, 0xF4};
constexpr QColor lit{0xFF, 0x4D, 0x9D};
// What sets a key off a light panel; on a dark one nobody sees it.
constexpr QColor rim{0x21, 0x16, 0x1D, 0xB0};

}  // namespace

// Every edge lies between two pixels.
QImage trayImage(int size) {
  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const int gap = std::max(2, size / 11);
  const int key = (size - size / 20 - gap) / 2;
  const int margin = (size - 2 * key - gap) / 2;
  const int border = std::max(1, size / 24);
  for (const int row : {0, 1}) {
    for (const int column : {0, 1}) {
      const QRectF outer(margin + column * (key + gap), margin + row * (key + gap), key, key);
      const qreal radius = key / 3.5;
      painter.setBrush(rim);
      painter.drawRoundedRect(outer, radius, radius);
      painter.setBrush(row == 0 && column == 1 ? lit : face);
      const auto inner = outer.adjusted(border, border, -border, -border);
      painter.drawRoundedRect(inner, radius - border * 0.7, radius - border * 0.7);
    }
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
