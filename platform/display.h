// SPDX-License-Identifier: MIT
// The displays that windows can be shown on.
#pragma once

#include <string>
#include <vector>

namespace glintboard {

// Qt's names ("wayland", "xcb") of the window systems that the environment names and that answer,
// the preferred one first; empty without a display. If QT_QPA_PLATFORM is set, it names the
// candidates. Blocks for at most two seconds for each window system that hangs. Forks: call it
// before starting threads.
std::vector<std::string> reachableDisplays();

}  // namespace glintboard
