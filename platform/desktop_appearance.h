// SPDX-License-Identifier: MIT
// How the user wants windows to look.
#pragma once

namespace glintboard {

struct DesktopAppearance {
  bool dark = false;
  bool increasedContrast = false;
  bool reducedMotion = false;
  double textScale = 1.0;  // of the desktop's normal text size, 0.5 to 4

  bool operator==(const DesktopAppearance&) const = default;
};

}  // namespace glintboard
