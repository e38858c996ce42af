// SPDX-License-Identifier: MIT
// The identifiers that mean the same application on every computer.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// Whatever the user's file manager is.
inline constexpr const char* fileManagerBundleId = "com.apple.finder";

// Bundle identifier to the desktop file id of the installed application that bears it.
using KnownApplications = std::map<std::string, std::string>;

// Which of the installed applications bear an identifier that the built-in decks use: known
// programs under the ids of distributions, Flatpak and Snap, and the file manager, terminal and
// settings of this desktop. An entry whose own id is such an identifier bears it in any case and
// is left out here. Reads the desktop's lists of default applications; blocks on the disk.
KnownApplications knownApplications(const std::vector<DesktopEntry>& installed,
                                    const XdgFolders& folders);

}  // namespace glintboard
