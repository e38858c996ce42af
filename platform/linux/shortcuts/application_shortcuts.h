// SPDX-License-Identifier: MIT
// The Shortcuts that installed applications provide.
#pragma once

#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/shortcuts/shortcut.h"

namespace glintboard {

// A Shortcut for each action of the applications that belong in menus, sorted by application. An
// action's identifier depends only on the ids of application and action.
std::vector<Shortcut> applicationShortcuts(const std::vector<DesktopEntry>& entries);

}  // namespace glintboard
