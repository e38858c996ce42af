// SPDX-License-Identifier: MIT
// Translucent windows.
#pragma once

namespace glintboard {

// Whether the desktop composites windows, so that they may be translucent. Main thread, while the
// application object exists. Waits for the X server where there is one.
bool compositesWindows();

}  // namespace glintboard
