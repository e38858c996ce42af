// SPDX-License-Identifier: MIT
// The properties of a glass tile and the sizes derived from them. GlassDeckTileView.qml draws it.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QImage>
#include <QPointer>
#include <QQuickItem>
#include <QVariant>

#include "ui/tile/tile_appearance.h"
#include "ui/tile/tile_is_pressed_key.h"

namespace glintboard {

// Has no state of its own: its user sets and clears the flags. Main thread only.
class GlassTile : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(glintboard::TileAppearance appearance MEMBER appearance_ NOTIFY appearanceChanged)
  // The caption.
  Q_PROPERTY(QString displayLabel MEMBER displayLabel_ NOTIFY displayLabelChanged)
  // The side of the face; 0 for the default of 72.
  Q_PROPERTY(qreal tileFaceSize MEMBER tileFaceSize_ NOTIFY tileFaceSizeChanged)
  // The application's own icon, a QImage, drawn instead of the glyph; undefined for none.
  Q_PROPERTY(QVariant macIcon READ macIcon WRITE setMacIcon NOTIFY macIconChanged)
  // Tints the dark face behind an icon; the gradient's first colour unless set.
  Q_PROPERTY(QColor iconAccent READ iconAccent WRITE setIconAccent NOTIFY iconAccentChanged)
  // A symbol instead of the appearance's glyph; empty for none.
  Q_PROPERTY(QString iconSymbol MEMBER iconSymbol_ NOTIFY iconSymbolChanged)
  Q_PROPERTY(bool isRunning MEMBER isRunning_ NOTIFY isRunningChanged)
  Q_PROPERTY(bool isLaunching MEMBER isLaunching_ NOTIFY isLaunchingChanged)
  Q_PROPERTY(bool didSucceed MEMBER didSucceed_ NOTIFY didSucceedChanged)
  // In use now: marked by a glow in the accent.
  Q_PROPERTY(bool isLive MEMBER isLive_ NOTIFY isLiveChanged)
  // The key's application or Shortcut is gone.
  Q_PROPERTY(bool isMissing MEMBER isMissing_ NOTIFY isMissingChanged)
  // The caption's colours, of a running application and of others.
  Q_PROPERTY(QColor labelColor MEMBER labelColor_ NOTIFY labelColorChanged)
  Q_PROPERTY(QColor labelMutedColor MEMBER labelMutedColor_ NOTIFY labelMutedColorChanged)
  Q_PROPERTY(bool showsLabel MEMBER showsLabel_ NOTIFY showsLabelChanged)
  Q_PROPERTY(bool showsRunningDot MEMBER showsRunningDot_ NOTIFY showsRunningDotChanged)
  // The value of the TileIsPressedKey of this item or of its nearest ancestor that has one.
  Q_PROPERTY(bool isPressed READ isPressed NOTIFY isPressedChanged)

  Q_PROPERTY(qreal faceSize READ faceSize NOTIFY tileFaceSizeChanged)
  Q_PROPERTY(qreal cornerRadius READ cornerRadius NOTIFY tileFaceSizeChanged)
  // The side of the glyph or icon.
  Q_PROPERTY(qreal glyphSize READ glyphSize NOTIFY tileFaceSizeChanged)
  Q_PROPERTY(qreal captionSize READ captionSize NOTIFY tileFaceSizeChanged)
  // The diameter of the running dot.
  Q_PROPERTY(qreal dotSize READ dotSize NOTIFY tileFaceSizeChanged)
  Q_PROPERTY(QString shownGlyph READ shownGlyph NOTIFY glyphChanged)
  Q_PROPERTY(bool showsIcon READ showsIcon NOTIFY macIconChanged)

 public:
  explicit GlassTile(QQuickItem* parent = nullptr);

  QVariant macIcon() const { return macIcon_; }
  void setMacIcon(const QVariant& value);
  QColor iconAccent() const;
  void setIconAccent(const QColor& accent);

  bool isPressed() const {
    return pressedKey_ ? pressedKey_->tileIsPressed() : TileIsPressedKey::defaultValue;
  }
  // Looks for the key that holds now. Done by itself when the tile gets another parent.
  void followPressing();

  qreal faceSize() const { return tileFaceSize_ > 0 ? tileFaceSize_ : 72; }
  qreal cornerRadius() const { return 0.224 * faceSize(); }
  qreal glyphSize() const { return 0.46 * faceSize(); }
  qreal captionSize() const;
  qreal dotSize() const { return tileFaceSize_ > 80 ? 6 : 5; }
  QString shownGlyph() const { return iconSymbol_.isEmpty() ? appearance_.glyph : iconSymbol_; }
  bool showsIcon() const { return !macIcon_.isNull(); }

 Q_SIGNALS:
  void appearanceChanged();
  void displayLabelChanged();
  void tileFaceSizeChanged();
  void macIconChanged();
  void iconAccentChanged();
  void iconSymbolChanged();
  void isRunningChanged();
  void isLaunchingChanged();
  void didSucceedChanged();
  void isLiveChanged();
  void isMissingChanged();
  void labelColorChanged();
  void labelMutedColorChanged();
  void showsLabelChanged();
  void showsRunningDotChanged();
  void isPressedChanged();
  void glyphChanged();

 protected:
  void componentComplete() override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  TileAppearance appearance_;
  QString displayLabel_;
  qreal tileFaceSize_ = 0;
  QImage macIcon_;
  QColor iconAccent_;
  QString iconSymbol_;
  bool isRunning_ = false;
  bool isLaunching_ = false;
  bool didSucceed_ = false;
  bool isLive_ = false;
  bool isMissing_ = false;
  QColor labelColor_ = Qt::black;
  QColor labelMutedColor_ = Qt::darkGray;
  bool showsLabel_ = true;
  bool showsRunningDot_ = true;
  QPointer<TileIsPressedKey> pressedKey_;
};

}  // namespace glintboard
