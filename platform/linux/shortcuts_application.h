// The application in which the user sees the Shortcuts.
#pragma once

#include <filesystem>

#include "platform/shortcuts_bundle_id.h"
#include "platform/workspace_client.h"

namespace glintboard {

// The workspace with one application more, always installed and never running: it opens the
// folder of Shortcuts, made where it is missing, in the user's file manager.
WorkspaceClient withShortcutsApplication(WorkspaceClient workspace, asio::any_io_executor workers,
                                         std::filesystem::path folder);

}  // namespace glintboard
