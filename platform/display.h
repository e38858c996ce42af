// SPDX-License-Identifier: MIT
// The screen that windows can be shown on.
#pragma once

#include <string>
#include <vector>

namespace glintboard {

// Qt's names ("wayland", "xcb") of the window systems that this process's environment names and
// that really answer, best first; empty without a display. What the user has put into
// QT_QPA_PLATFORM decides instead where it is set, but a window system that does not answer is
// left out there too. Blocks for at most two seconds for each that hangs. Call it before other
// threads run.
std::vector<std::string> reachableDisplays();

}  // namespace glintboard
