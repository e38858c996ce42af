// SPDX-License-Identifier: MIT
// The colour of cards and keys without an icon.
#pragma once

#include <QColor>

namespace glintboard {

QColor fallbackAccent();

}  // namespace glintboard
