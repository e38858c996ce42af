// SPDX-License-Identifier: MIT
// The Shortcuts application.
#pragma once

#include <filesystem>
#include <functional>

#include "platform/shortcuts_bundle_id.h"
#include "platform/workspace_client.h"

namespace glintboard {

// Opens a folder and creates it if it is missing. Throws UserError if no application opens folders.
using FolderOpener = std::function<Awaitable<bool>(std::filesystem::path folder)>;

// Adds the application `shortcutsBundleId` to a workspace. It is always installed and never
// running; starting it opens the folder of Shortcuts in the user's file manager.
WorkspaceClient withShortcutsApplication(WorkspaceClient workspace, std::filesystem::path folder,
                                         FolderOpener open);

}  // namespace glintboard
