// SPDX-License-Identifier: MIT
// The drawings of the symbols that keys and views name.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>
#include <QStringList>

class QPainter;

namespace glintboard::Symbols {

// The names of all symbols that have a drawing.
QStringList names();
bool isKnown(const QString& name);
// What fits the area: the square that a drawing lies in, so that symbols beside texts are of one
// size, or what is drawn of it.
enum class Fit { square, drawing };
// Draws the symbol as large as fits into the middle of `area`. An unknown name draws a question
// mark, so that a key from elsewhere is never blank.
void draw(QPainter& painter, const QString& name, const QRectF& area, const QColor& color,
          Fit fit = Fit::square);

}  // namespace glintboard::Symbols
