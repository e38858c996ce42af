// SPDX-License-Identifier: MIT
// The icons of Shortcuts, from their files, the applications' entries and the icon theme.
#pragma once

#include <memory>

#include "platform/linux/applications/application_index.h"
#include "platform/linux/base/xdg_folders.h"
#include "platform/shortcut_icon_client.h"

namespace glintboard {

// The icons of all Shortcuts. A Shortcut without an icon, or with one that cannot be drawn, gets a
// tile (drawShortcutTile).
ShortcutIconClient shortcutIcons(std::shared_ptr<const ApplicationIndex> index,
                                 const XdgFolders& folders);

}  // namespace glintboard
