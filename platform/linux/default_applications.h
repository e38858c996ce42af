// The applications that the user or the desktop prefers.
#pragma once

#include <string>
#include <vector>

#include "platform/linux/xdg_folders.h"

namespace glintboard {

// Desktop file ids, most preferred first, installed or not. Both read a few small files.

// Of those that open a MIME type.
std::vector<std::string> preferredForType(const XdgFolders& folders, const char* mimeType);
// Of terminals.
std::vector<std::string> preferredTerminals(const XdgFolders& folders);

// The names of the running desktop, "ubuntu:GNOME", as a list in lower case.
std::vector<std::string> desktopNames(const XdgFolders& folders);

}  // namespace glintboard
