// SPDX-License-Identifier: MIT
// Which icon theme the user has chosen.
#pragma once

#include <string>

#include "platform/linux/base/file_stamps.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// The name of the theme that the desktop's settings choose, or empty. Notes in `stamps` the files
// whose change may change it. Reads files and asks a running desktop portal, but starts nothing.
// Blocks, at most about a second.
std::string desktopIconTheme(const XdgFolders& folders, FileStamps& stamps);

}  // namespace glintboard
