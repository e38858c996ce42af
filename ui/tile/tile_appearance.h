// SPDX-License-Identifier: MIT
// How a key looks: what is drawn on its face, and the face's colours.
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

  // The look of a key: known applications have one of their own, others their first letter.
  static TileAppearance forTile(const DeckTile& tile);
  // What a reader takes for the first character, however many code points it has.
  static QString firstCharacter(const QString& label);
};

}  // namespace glintboard
