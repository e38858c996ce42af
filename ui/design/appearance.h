// SPDX-License-Identifier: MIT
// What the user asks of every window's look. The agent hands it in; nothing here asks a desktop.
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
