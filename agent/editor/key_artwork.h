// SPDX-License-Identifier: MIT
// The appearance and icons of the edited deck's keys.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QImage>
#include <QObject>
#include <QVariant>

#include "ui/tile/tile_appearance.h"

class QJSEngine;
class QQmlEngine;

namespace glintboard {

// One for each QML engine; reads the icons of the engine's provider. Main thread only.
class KeyArtwork : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  static KeyArtwork* create(QQmlEngine* engine, QJSEngine* scripts);

  // The appearance of a key with these fields. An empty text means an absent field.
  Q_INVOKABLE glintboard::TileAppearance appearance(const QString& kind, const QString& label,
                                                    const QString& iconName,
                                                    const QString& iconSymbol) const;
  // The letter shown instead of an icon.
  Q_INVOKABLE static QString letter(const QString& label) {
    return TileAppearance::firstCharacter(label).toUpper();
  }
  // The QImage of an icon source, for a tile; undefined when there is none.
  Q_INVOKABLE QVariant icon(const QString& source) const;

 private:
  explicit KeyArtwork(QQmlEngine& engine) : engine_(engine) {}

  QQmlEngine& engine_;  // owns this
};

}  // namespace glintboard
