// SPDX-License-Identifier: MIT
// The icons of installed applications, from their entries and the icon theme.
#pragma once

#include <memory>

#include "platform/application_icon_client.h"
#include "platform/linux/applications/application_index.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// An application whose icon is missing or unusable has the theme's generic one.
ApplicationIconClient applicationIcons(std::shared_ptr<const ApplicationIndex> index,
                                       const XdgFolders& folders);

// Draws the image file into a transparent square of `side` pixels, fitted and centred. Null when
// the file is no image or is larger than any icon (16 MiB, 4096 pixels a side). A drawing (SVG) may
// need fonts and is drawn only while a QGuiApplication exists. Any thread.
QImage drawIcon(const std::filesystem::path& file, int side);

}  // namespace glintboard
