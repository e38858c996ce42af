// SPDX-License-Identifier: MIT
// The replies to a request for icons.
#pragma once

#include "agent/connection/replies.h"
#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "platform/workspace_client.h"

namespace glintboard {

// One "app.icon" for each key that has an icon, in the order of the keys and each under an id of
// its own. Keys beyond the 256th are ignored. The providers and the workspace must outlive the
// operation. Throws WireCodecError.
Awaitable<Replies> iconReplies(std::vector<std::string> keys, AppIconProvider& applications,
                               ShortcutIconProvider& shortcuts, const WorkspaceClient& workspace);

}  // namespace glintboard
