// SPDX-License-Identifier: MIT
#pragma once

namespace glintboard {

// Whether windows may be translucent on the desktop that the application object is connected to.
// Main thread.
bool compositesWindows();

}  // namespace glintboard
