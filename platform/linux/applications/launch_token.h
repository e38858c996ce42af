// SPDX-License-Identifier: MIT
// The startup notification of a launched program.
#pragma once

#include <string>

namespace glintboard {

// Passed to a launched program so that its first window gets the focus. Either may be empty.
struct LaunchToken {
  // For X11: DESKTOP_STARTUP_ID.
  std::string startupId;
  // For Wayland: XDG_ACTIVATION_TOKEN.
  std::string activationToken;
};

}  // namespace glintboard
