// SPDX-License-Identifier: MIT
// The Shortcuts that installed applications bring.
#pragma once

#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/shortcuts/shortcut.h"

namespace glintboard {

// The actions of the applications that are offered in menus, sorted by application. An action's
// identifier is always the same, on every computer.
std::vector<Shortcut> applicationShortcuts(const std::vector<DesktopEntry>& entries);

}  // namespace glintboard
