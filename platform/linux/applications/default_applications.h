// SPDX-License-Identifier: MIT
// The applications that the user or the desktop prefers.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// Desktop file ids, most preferred first, installed or not.
struct TypeApplications {
  // Those that were chosen for the type.
  std::vector<std::string> defaults;
  // Those that can open it.
  std::vector<std::string> others;
};

// The two read a few small files.
TypeApplications applicationsForType(const XdgFolders& folders, const char* mimeType);
// The terminals that were chosen, most preferred first: desktop file ids.
std::vector<std::string> preferredTerminals(const XdgFolders& folders,
                                            const std::vector<DesktopEntry>& installed);

// Where choices are kept outside of the applications folders: folders, and how the names of the
// files end. Other programs keep their settings beside them.
std::vector<std::pair<std::filesystem::path, std::vector<std::string>>> defaultApplicationFiles(
    const XdgFolders& folders);

// The names of the running desktop, "ubuntu:GNOME", as a list in lower case.
std::vector<std::string> desktopNames(const XdgFolders& folders);

}  // namespace glintboard
