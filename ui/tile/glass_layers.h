// SPDX-License-Identifier: MIT
// The painted layers of a glass tile. Each is an item, so that they can be animated apart.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QImage>
#include <QVariant>

#include "ui/design/painted_item.h"

namespace glintboard {

// Derived classes name this one with its namespace, since qmltyperegistrar finds it by the
// qualified name only.
class GlassLayer : public glintboard::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("It is the base of the layers.")
  // The radius of the face's corners.
  Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY changed)
  // Drawn as a key whose application or Shortcut is gone.
  Q_PROPERTY(bool missing MEMBER missing_ NOTIFY changed)

 public:
  using PaintedItem::PaintedItem;

 protected:
  qreal radius() const { return radius_; }
  bool missing() const { return missing_; }

 private:
  qreal radius_ = 0;
  bool missing_ = false;
};

// The face in its gradient.
class GlassFace : public glintboard::GlassLayer {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor upper MEMBER upper_ NOTIFY changed)
  Q_PROPERTY(QColor lower MEMBER lower_ NOTIFY changed)
  // A dark face in a tint of `upper`, as the background of an icon.
  Q_PROPERTY(bool behindIcon MEMBER behindIcon_ NOTIFY changed)

 public:
  using GlassLayer::GlassLayer;

  void paint(QPainter* painter) override;

 private:
  QColor upper_;
  QColor lower_;
  bool behindIcon_ = false;
};

// The light on the upper part of the face.
class GlassHighlight : public glintboard::GlassLayer {
  Q_OBJECT
  QML_ELEMENT

 public:
  using GlassLayer::GlassLayer;

  void paint(QPainter* painter) override;
};

// The bright band along the edge of the face; a dashed line when the key is missing. Lengths in
// device-independent pixels.
class GlassRim : public glintboard::GlassLayer {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal bandWidth MEMBER bandWidth_ NOTIFY changed)
  Q_PROPERTY(qreal edgeInset MEMBER edgeInset_ NOTIFY changed)

 public:
  using GlassLayer::GlassLayer;

  void paint(QPainter* painter) override;

 private:
  qreal bandWidth_ = 1.5;
  qreal edgeInset_ = 0;
};

// A symbol, a letter or an application's icon (a QImage), within `margin` on every side: room for
// the shadow of one pixel.
class TileGlyph : public glintboard::GlassLayer {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString glyph MEMBER glyph_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(QVariant icon READ icon WRITE setIcon NOTIFY changed)
  Q_PROPERTY(qreal margin READ margin CONSTANT)

 public:
  using GlassLayer::GlassLayer;

  static qreal margin() { return 1; }

  QVariant icon() const { return icon_; }
  void setIcon(const QVariant& value);

  void paint(QPainter* painter) override;

 private:
  void paintIcon(QPainter& painter, const QRectF& area) const;
  void paintGlyph(QPainter& painter, const QRectF& area, const QColor& color) const;

  QString glyph_;
  QColor color_ = Qt::white;
  QImage icon_;
};

}  // namespace glintboard
