// SPDX-License-Identifier: MIT
// The design of every window as one QML singleton: colours, fonts, distances, durations.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>

#include "ui/design/appearance.h"
#include "ui/design/theme_fonts.h"

namespace glintboard {

// All values derive from the appearance, which `setAppearance` may change at any time. Main thread
// only.
class Theme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  Q_PROPERTY(bool dark READ dark NOTIFY appearanceChanged)
  Q_PROPERTY(bool increasedContrast READ increasedContrast NOTIFY appearanceChanged)
  Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY appearanceChanged)
  Q_PROPERTY(double textScale READ textScale NOTIFY appearanceChanged)

  // A window's background, a gradient from top to bottom.
  Q_PROPERTY(QColor windowTop READ windowTop NOTIFY appearanceChanged)
  Q_PROPERTY(QColor windowBottom READ windowBottom NOTIFY appearanceChanged)
  // Cards and panels. `surface` is translucent, `solidSurface` is `surface` blended with the
  // window.
  Q_PROPERTY(QColor surface READ surface NOTIFY appearanceChanged)
  Q_PROPERTY(QColor solidSurface READ solidSurface NOTIFY appearanceChanged)
  Q_PROPERTY(QColor stroke READ stroke NOTIFY appearanceChanged)
  // Tints of hovered and pressed controls.
  Q_PROPERTY(QColor hover READ hover NOTIFY appearanceChanged)
  Q_PROPERTY(QColor pressed READ pressed NOTIFY appearanceChanged)
  Q_PROPERTY(QColor shadow READ shadow NOTIFY appearanceChanged)

  Q_PROPERTY(QColor text READ text NOTIFY appearanceChanged)
  Q_PROPERTY(QColor secondaryText READ secondaryText NOTIFY appearanceChanged)
  Q_PROPERTY(QColor accent READ accent NOTIFY appearanceChanged)
  Q_PROPERTY(QColor onAccent READ onAccent NOTIFY appearanceChanged)
  // Text in the colour of a meaning, legible in either appearance. `dangerText` is so on a window's
  // background, plain or tinted with itself at the strength of `hover`, not on a card.
  Q_PROPERTY(QColor dangerText READ dangerText NOTIFY appearanceChanged)
  Q_PROPERTY(QColor warningText READ warningText NOTIFY appearanceChanged)
  Q_PROPERTY(QColor successText READ successText NOTIFY appearanceChanged)
  // Marks and fills, the same in every appearance.
  Q_PROPERTY(QColor accentVivid READ accentVivid CONSTANT)
  // Text on `accentVivid`.
  Q_PROPERTY(QColor accentText READ accentText CONSTANT)
  // Text in the accent's hue on a dark background.
  Q_PROPERTY(QColor accentPale READ accentPale CONSTANT)
  Q_PROPERTY(QColor darkGround READ darkGround CONSTANT)
  Q_PROPERTY(QColor success READ success CONSTANT)
  Q_PROPERTY(QColor warning READ warning CONSTANT)
  Q_PROPERTY(QColor danger READ danger CONSTANT)
  Q_PROPERTY(QColor dangerVivid READ dangerVivid CONSTANT)
  Q_PROPERTY(QColor inactive READ inactive CONSTANT)

  Q_PROPERTY(glintboard::ThemeFonts* fonts READ fonts NOTIFY appearanceChanged)
  // The size of a symbol beside a text. It scales with the text.
  Q_PROPERTY(int symbolSize READ symbolSize NOTIFY appearanceChanged)
  Q_PROPERTY(QString teachingCaption READ teachingCaption CONSTANT)

  // Milliseconds. With reduced motion movements take 0, and fades keep their duration.
  Q_PROPERTY(int pressTime READ pressTime NOTIFY appearanceChanged)
  Q_PROPERTY(int releaseTime READ releaseTime NOTIFY appearanceChanged)
  Q_PROPERTY(int moveTime READ moveTime NOTIFY appearanceChanged)
  Q_PROPERTY(int partTime READ partTime NOTIFY appearanceChanged)
  Q_PROPERTY(int fadeTime READ fadeTime CONSTANT)

 public:
  // DeckTypography's styles and weights, in its order.
  enum TextStyle {
    LargeTitle,
    Title,
    Title2,
    Title3,
    Headline,
    Body,
    Callout,
    Subheadline,
    Footnote,
    Caption,
    Caption2,
  };
  Q_ENUM(TextStyle)
  enum Weight { UltraLight, Thin, Light, Regular, Medium, Semibold, Bold, Heavy, Black };
  Q_ENUM(Weight)
  // Spacing, in device-independent pixels.
  enum Gap { Gap4 = 4, Gap8 = 8, Gap12 = 12, Gap16 = 16, Gap24 = 24, Gap32 = 32 };
  Q_ENUM(Gap)
  // Corner radii.
  enum Radius { FieldRadius = 8, CardRadius = 12, PanelRadius = 16, PhoneRadius = 44 };
  Q_ENUM(Radius)

  explicit Theme(QObject* parent = nullptr) : QObject(parent) {}

  const Appearance& appearance() const { return appearance_; }
  void setAppearance(const Appearance& appearance);

  // `accentVivid` at an opacity of 0 … 1.
  Q_INVOKABLE static QColor accentGlow(double opacity);
  // `color` with its opacity multiplied.
  Q_INVOKABLE static QColor faded(QColor color, double opacity);
  // The better legible of white and near-black on `background`.
  Q_INVOKABLE static QColor inkOn(const QColor& background);

  bool dark() const { return appearance_.dark; }
  bool increasedContrast() const { return appearance_.increasedContrast; }
  bool reducedMotion() const { return appearance_.reducedMotion; }
  double textScale() const { return appearance_.textScale; }

  QColor windowTop() const;
  QColor windowBottom() const;
  QColor surface() const;
  QColor solidSurface() const;
  QColor stroke() const;
  QColor hover() const;
  QColor pressed() const;
  QColor shadow() const;
  QColor text() const;
  QColor secondaryText() const;
  QColor accent() const;
  QColor onAccent() const;
  QColor dangerText() const;
  QColor warningText() const;
  QColor successText() const;
  static QColor accentVivid();
  static QColor accentText();
  static QColor accentPale();
  static QColor darkGround();
  static QColor success();
  static QColor warning();
  static QColor danger();
  static QColor dangerVivid();
  static QColor inactive();

  ThemeFonts* fonts() { return &fonts_; }
  int symbolSize() const { return qRound(18 * textScale()); }
  static QString teachingCaption();

  int pressTime() const { return movement(90); }
  int releaseTime() const { return movement(160); }
  int moveTime() const { return movement(160); }
  int partTime() const { return movement(180); }
  static int fadeTime() { return 160; }

 Q_SIGNALS:
  void appearanceChanged();

 private:
  int movement(int milliseconds) const { return appearance_.reducedMotion ? 0 : milliseconds; }

  Appearance appearance_;
  ThemeFonts fonts_;
};

}  // namespace glintboard
