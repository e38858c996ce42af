// SPDX-License-Identifier: MIT
// Starts installed applications.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/applications/launch_token.h"

namespace glintboard {

// Starts the application of an entry with `uris` to open, as a desktop does: over D-Bus if the
// entry is D-Bus activatable, else as a program in a session of its own. The program is not a child
// of this process and inherits no descriptors, output or signal settings. `token` lets its first
// window take the focus. Returns the program's process id, or none for a D-Bus activation. Throws
// UserError when the application cannot be started. Blocks for up to about ten seconds: call it on
// a worker.
std::optional<pid_t> launchApplication(const DesktopEntry& entry,
                                       const std::vector<std::string>& uris = {},
                                       const LaunchToken& token = {});

// Runs one of the actions of an entry in the same way.
std::optional<pid_t> launchApplicationAction(const DesktopEntry& entry, const std::string& action);

// Asks a running application over D-Bus to bring its windows to the front. True when it answered
// within `deadline`; false also for an entry that is not D-Bus activatable. Blocks until then.
bool activateOverDBus(const DesktopEntry& entry, const LaunchToken& token,
                      std::chrono::milliseconds deadline);

}  // namespace glintboard
