// SPDX-License-Identifier: MIT
// The appearance that the user has set for windows.
#pragma once

namespace glintboard {

struct DesktopAppearance {
  bool dark = false;
  bool increasedContrast = false;
  bool reducedMotion = false;
  double textScale = 1.0;  // relative to the desktop's normal text size, 0.5 to 4

  bool operator==(const DesktopAppearance&) const = default;
};

}  // namespace glintboard
