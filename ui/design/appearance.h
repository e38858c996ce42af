// SPDX-License-Identifier: MIT
// The user's appearance settings. The agent passes them in; the ui library does not read the
// desktop's settings.
#pragma once

namespace glintboard {

struct Appearance {
  bool dark = false;
  bool increasedContrast = false;
  bool reducedMotion = false;  // fades instead of movement
  double textScale = 1.0;      // multiplies every font size

  bool operator==(const Appearance&) const = default;
};

}  // namespace glintboard
