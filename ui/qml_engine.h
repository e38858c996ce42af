// SPDX-License-Identifier: MIT
// Prepares a QML engine for the module.
#pragma once

#include "ui/design/theme.h"

class QQmlEngine;

namespace glintboard {

// Registers the fonts and the QML module `Glintboard.UI`, sets the engine's import path, and sets
// its theme's appearance. Call it once for each engine, before it loads a view.
void prepareEngine(QQmlEngine& engine, const Appearance& appearance);

// The theme of a prepared engine, for changes of the appearance.
Theme& themeOf(QQmlEngine& engine);

}  // namespace glintboard
