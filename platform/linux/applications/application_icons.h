// SPDX-License-Identifier: MIT
// The icons of installed applications, from their entries and the icon theme.
#pragma once

#include <memory>

#include "platform/application_icon_client.h"
#include "platform/linux/applications/application_index.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// The icons of the applications in `index`. An application whose icon is missing or unusable gets
// the theme's generic one.
ApplicationIconClient applicationIcons(std::shared_ptr<const ApplicationIndex> index,
                                       const XdgFolders& folders);

// Draws an image file into a transparent square of `side` pixels, fitted and centred. Null when the
// file is not an image or exceeds 16 MiB or 4096 pixels a side. SVG files are drawn only while a
// QGuiApplication exists, because they may contain text. Any thread; blocks on the disk.
QImage drawIcon(const std::filesystem::path& file, int side);

}  // namespace glintboard
