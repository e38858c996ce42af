// SPDX-License-Identifier: MIT
// The appearance of a key: the glyph and the colours of its face.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QObject>
#include <QString>

#include "protocol/deck_tile.h"

namespace glintboard {

class TileAppearance {
  Q_GADGET
  QML_VALUE_TYPE(tileAppearance)
  Q_PROPERTY(QString glyph MEMBER glyph)
  Q_PROPERTY(QList<QColor> gradient MEMBER gradient)

 public:
  QString glyph;           // the name of a symbol, or a single letter
  QList<QColor> gradient;  // two colours, top and bottom

  bool operator==(const TileAppearance&) const = default;

  // Known applications have a symbol and colours of their own, others show their first letter.
  static TileAppearance forTile(const DeckTile& tile);
  // The first grapheme cluster, empty for an empty label.
  static QString firstCharacter(const QString& label);
};

}  // namespace glintboard
