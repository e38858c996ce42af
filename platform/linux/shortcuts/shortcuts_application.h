// SPDX-License-Identifier: MIT
// The application in which the user sees the Shortcuts.
#pragma once

#include <filesystem>
#include <functional>

#include "platform/shortcuts_bundle_id.h"
#include "platform/workspace_client.h"

namespace glintboard {

// Opens a folder, made where it is missing. Throws UserError when nothing can.
using FolderOpener = std::function<Awaitable<bool>(std::filesystem::path folder)>;

// The workspace with one application more, always installed and never running: it opens the
// folder of Shortcuts in the user's file manager.
WorkspaceClient withShortcutsApplication(WorkspaceClient workspace, std::filesystem::path folder,
                                         FolderOpener open);

}  // namespace glintboard
