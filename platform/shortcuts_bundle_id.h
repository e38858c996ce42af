// SPDX-License-Identifier: MIT
// The identifier of the Shortcuts application.
#pragma once

namespace glintboard {

// The application in which the user edits Shortcuts. The identifier is the one that the phone's
// protocol took from the Mac.
inline constexpr const char* shortcutsBundleId = "com.apple.shortcuts";

}  // namespace glintboard
