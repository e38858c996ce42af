// SPDX-License-Identifier: MIT
#include "agent/menu/deck_mark.h"

#include <QPainter>

#include "agent/menu/tray_icon.h"

namespace glintboard {

void DeckMark::paint(QPainter* painter) {
  const qreal ratio = painter->device()->devicePixelRatio();
  QImage image = markImage(static_cast<int>(width() * ratio), key_, lit_);
  image.setDevicePixelRatio(ratio);
  painter->drawImage(QPointF(), image);
}

}  // namespace glintboard
