// SPDX-License-Identifier: MIT
// The default applications of the user and the desktop.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// Desktop file ids, the most preferred first, without ".desktop". They need not be installed.
struct TypeApplications {
  // The default applications of the type.
  std::vector<std::string> defaults;
  // Other applications that can open it.
  std::vector<std::string> others;
};

// The applications for a MIME type. Reads a few small files.
TypeApplications applicationsForType(const XdgFolders& folders, const char* mimeType);
// The desktop file ids of the chosen terminals, the most preferred first. Reads a few small files.
std::vector<std::string> preferredTerminals(const XdgFolders& folders,
                                            const std::vector<DesktopEntry>& installed);

// The settings files with defaults outside the applications folders, to watch for changes: folders
// and the endings of the relevant file names.
std::vector<std::pair<std::filesystem::path, std::vector<std::string>>> defaultApplicationFiles(
    const XdgFolders& folders);

// The names of the running desktop in lower case: "ubuntu", "gnome" for "ubuntu:GNOME".
std::vector<std::string> desktopNames(const XdgFolders& folders);

}  // namespace glintboard
