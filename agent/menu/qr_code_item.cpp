// SPDX-License-Identifier: MIT
#include "agent/menu/qr_code_item.h"

#include <QPainter>

#include "agent/menu/qr_code_image.h"

namespace glintboard {

QRCodeItem::QRCodeItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setSmooth(false);
  setAntialiasing(false);
}

void QRCodeItem::setText(const QString& text) {
  if (text == text_) {
    return;
  }
  text_ = text;
  hasImage_ = !QRCodeImage::make(text).isNull();
  update();
  Q_EMIT textChanged();
}

void QRCodeItem::paint(QPainter* painter) {
  painter->drawImage(QPointF(),
                     QRCodeImage::make(text_, width(), painter->device()->devicePixelRatio()));
}

}  // namespace glintboard
