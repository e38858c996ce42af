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
// What fits the area: the square that contains the drawing, so that symbols beside texts have the
// same size, or the drawing itself.
enum class Fit { square, drawing };
// Draws the symbol as large as fits into the middle of `area`. An unknown name draws a question
// mark, so that a key is never blank. Any thread.
void draw(QPainter& painter, const QString& name, const QRectF& area, const QColor& color,
          Fit fit = Fit::square);

}  // namespace glintboard::Symbols
