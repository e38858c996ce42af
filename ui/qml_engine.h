// SPDX-License-Identifier: MIT
// Makes the module usable from an engine.
#pragma once

#include "ui/design/theme.h"

class QQmlEngine;

namespace glintboard {

// Registers the fonts and the QML module `Glintboard.UI`, sets where the engine finds it, and gives
// the engine's look this appearance. To be called once for each engine, before it loads anything.
void prepareEngine(QQmlEngine& engine, const Appearance& appearance);

// The look of a prepared engine's views, for changes of the appearance.
Theme& themeOf(QQmlEngine& engine);

}  // namespace glintboard
