// SPDX-License-Identifier: MIT
// The bundle identifiers that decks use on every computer.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// The user's file manager. The com.apple identifiers come from the Mac that the phone's protocol
// was made for, and stand for a role here.
inline constexpr const char* fileManagerBundleId = "com.apple.finder";

// Maps bundle identifiers to the desktop file ids of installed applications.
using KnownApplications = std::map<std::string, std::string>;

// Assigns the identifiers of the built-in decks to installed applications: to known programs under
// the ids of distributions, Flatpak and Snap, and to the file manager, terminal and settings of
// this desktop. Leaves out identifiers that are the id of an installed entry. Reads the desktop's
// lists of default applications; blocks on the disk.
KnownApplications knownApplications(const std::vector<DesktopEntry>& installed,
                                    const XdgFolders& folders);

}  // namespace glintboard
