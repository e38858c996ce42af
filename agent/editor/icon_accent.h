// SPDX-License-Identifier: MIT
// The colour of cards and keys whose icon lends them none.
#pragma once

#include <QColor>

namespace glintboard {

QColor fallbackAccent();

}  // namespace glintboard
