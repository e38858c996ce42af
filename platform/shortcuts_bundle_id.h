// SPDX-License-Identifier: MIT
#pragma once

namespace glintboard {

// The application in which the user makes Shortcuts.
inline constexpr const char* shortcutsBundleId = "com.apple.shortcuts";

}  // namespace glintboard
