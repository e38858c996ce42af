// SPDX-License-Identifier: MIT
// The icon theme of the desktop.
#pragma once

#include <string>

#include "platform/linux/base/file_stamps.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// The name of the theme in the desktop's settings, or empty. Records in `stamps` the files that the
// name depends on. Reads files and asks a running desktop portal, but starts none. Blocks for up to
// about a second: call it on a worker.
std::string desktopIconTheme(const XdgFolders& folders, FileStamps& stamps);

}  // namespace glintboard
