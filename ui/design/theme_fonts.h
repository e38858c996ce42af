// SPDX-License-Identifier: MIT
// The fonts of the views, at the user's text scale. In QML: `Theme.fonts.ui(Theme.Body)`.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QFont>
#include <QObject>

namespace glintboard {

// Main thread only.
class ThemeFonts : public QObject {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  using QObject::QObject;

  void setTextScale(double scale) { textScale_ = scale; }

  // `style` and `weight` are values of Theme.TextStyle and Theme.Weight. For all usual text.
  Q_INVOKABLE QFont ui(int style, int weight = regular) const;
  // For a deck's name and the title of an empty state.
  Q_INVOKABLE QFont hero(int style, int weight = bold) const;
  // For the teaching caption.
  Q_INVOKABLE QFont handCaption(int style, int weight = regular) const;
  // For digits to copy. `tracking` is the letter spacing as a fraction of the font size.
  Q_INVOKABLE QFont mono(int style, int weight = regular, double tracking = 0) const;
  // The `ui` font at `size` pixels. Sizes that belong to a drawing do not follow the text scale.
  Q_INVOKABLE QFont uiSized(double size, int weight = regular, bool scales = true) const;

 private:
  static constexpr int regular = 3;
  static constexpr int bold = 6;

  double textScale_ = 1;
};

}  // namespace glintboard
