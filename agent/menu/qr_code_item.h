// SPDX-License-Identifier: MIT
// A QR code in a view.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickPaintedItem>

namespace glintboard {

// Draws `text` as a QR code over its whole square, at the resolution of its screen: a scaled image
// would have uneven modules. Main thread.
class QRCodeItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
  // Whether the text can be shown as a code.
  Q_PROPERTY(bool hasImage READ hasImage NOTIFY textChanged)

 public:
  explicit QRCodeItem(QQuickItem* parent = nullptr);

  QString text() const { return text_; }
  void setText(const QString& text);
  bool hasImage() const { return hasImage_; }

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void textChanged();

 private:
  QString text_;
  bool hasImage_ = false;
};

}  // namespace glintboard
