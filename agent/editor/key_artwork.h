// SPDX-License-Identifier: MIT
// How the keys of the edited deck look.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QImage>
#include <QObject>
#include <QVariant>

#include "ui/tile/tile_appearance.h"

class QJSEngine;
class QQmlEngine;

namespace glintboard {

// Answers for one QML engine, from the icons of the provider that it was given. Main thread only.
class KeyArtwork : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  static KeyArtwork* create(QQmlEngine* engine, QJSEngine* scripts);

  // The look of a key of these fields; empty texts are absent ones.
  Q_INVOKABLE glintboard::TileAppearance appearance(const QString& kind, const QString& label,
                                                    const QString& iconName,
                                                    const QString& iconSymbol) const;
  // The letter that stands for an icon.
  Q_INVOKABLE static QString letter(const QString& label) {
    return TileAppearance::firstCharacter(label).toUpper();
  }
  // The image behind a source that the models give, as a tile takes it; undefined for none.
  Q_INVOKABLE QVariant icon(const QString& source) const;

 private:
  explicit KeyArtwork(QQmlEngine& engine) : engine_(engine) {}

  QQmlEngine& engine_;  // owns this
};

}  // namespace glintboard
