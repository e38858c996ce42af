// SPDX-License-Identifier: MIT
// The painted layers of a glass tile, each an item so that light and press can move apart.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QImage>
#include <QQuickPaintedItem>
#include <QVariant>

namespace glintboard {

// Derived classes name this one with its namespace: qmltyperegistrar knows it by that alone.
// Painted anew only when one of its values changes, and sharp at every scale factor.
class GlassLayer : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("one of the layers is meant")
  // The radius of the face's corners.
  Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY layerChanged)
  // Drawn as something that is no longer there.
  Q_PROPERTY(bool missing READ missing WRITE setMissing NOTIFY layerChanged)

 public:
  explicit GlassLayer(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

  qreal radius() const { return radius_; }
  void setRadius(qreal radius) { change(radius_, radius); }
  bool missing() const { return missing_; }
  void setMissing(bool missing) { change(missing_, missing); }

 Q_SIGNALS:
  void layerChanged();

 protected:
  QRectF face() const { return {0, 0, width(), height()}; }

  template <class Value>
  void change(Value& field, const Value& value) {
    if (field != value) {
      field = value;
      update();
      Q_EMIT layerChanged();
    }
  }

 private:
  qreal radius_ = 0;
  bool missing_ = false;
};

class GlassFace : public glintboard::GlassLayer {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor upper READ upper WRITE setUpper NOTIFY layerChanged)
  Q_PROPERTY(QColor lower READ lower WRITE setLower NOTIFY layerChanged)
  // A dark face in a tint of `upper`, for an icon to stand on.
  Q_PROPERTY(bool behindIcon READ behindIcon WRITE setBehindIcon NOTIFY layerChanged)

 public:
  using GlassLayer::GlassLayer;

  QColor upper() const { return upper_; }
  void setUpper(const QColor& upper) { change(upper_, upper); }
  QColor lower() const { return lower_; }
  void setLower(const QColor& lower) { change(lower_, lower); }
  bool behindIcon() const { return behindIcon_; }
  void setBehindIcon(bool behindIcon) { change(behindIcon_, behindIcon); }

  void paint(QPainter* painter) override;

 private:
  QColor upper_;
  QColor lower_;
  bool behindIcon_ = false;
};

class GlassHighlight : public glintboard::GlassLayer {
  Q_OBJECT
  QML_ELEMENT

 public:
  using GlassLayer::GlassLayer;

  void paint(QPainter* painter) override;
};

class GlassRim : public glintboard::GlassLayer {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal bandWidth READ bandWidth WRITE setBandWidth NOTIFY layerChanged)
  Q_PROPERTY(qreal edgeInset READ edgeInset WRITE setEdgeInset NOTIFY layerChanged)

 public:
  using GlassLayer::GlassLayer;

  qreal bandWidth() const { return bandWidth_; }
  void setBandWidth(qreal width) { change(bandWidth_, width); }
  qreal edgeInset() const { return edgeInset_; }
  void setEdgeInset(qreal inset) { change(edgeInset_, inset); }

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
  Q_PROPERTY(QString glyph READ glyph WRITE setGlyph NOTIFY layerChanged)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY layerChanged)
  Q_PROPERTY(QVariant icon READ icon WRITE setIcon NOTIFY layerChanged)
  Q_PROPERTY(qreal margin READ margin CONSTANT)

 public:
  using GlassLayer::GlassLayer;

  static qreal margin() { return 1; }

  QString glyph() const { return glyph_; }
  void setGlyph(const QString& glyph) { change(glyph_, glyph); }
  QColor color() const { return color_; }
  void setColor(const QColor& color) { change(color_, color); }
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
