// SPDX-License-Identifier: MIT
// Starts installed applications.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/applications/launch_token.h"

namespace glintboard {

// Starts the application of an entry with `uris` to open, as a desktop would: over D-Bus where the
// entry asks for that, else as a program in a session of its own, which outlives this process, is
// no child of it and has none of its descriptors, output or signal settings. `token` lets its first
// window have the focus. Returns the program's process id, or none when a service on the bus
// started the application. Throws UserError when it cannot be started. Blocks, at most about ten
// seconds: call it on a worker.
std::optional<pid_t> launchApplication(const DesktopEntry& entry,
                                       const std::vector<std::string>& uris = {},
                                       const LaunchToken& token = {});

// Does one of the actions that an entry declares, in the same way.
std::optional<pid_t> launchApplicationAction(const DesktopEntry& entry, const std::string& action);

// Asks a running application to come forward through its D-Bus interface. True when it accepted
// in time, false when its entry does not offer that. Blocks as long as `deadline`.
bool activateOverDBus(const DesktopEntry& entry, const LaunchToken& token,
                      std::chrono::milliseconds deadline);

}  // namespace glintboard
