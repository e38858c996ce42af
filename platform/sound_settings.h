// SPDX-License-Identifier: MIT
// The settings of libpulse in this process.
#pragma once

#include <optional>
#include <string>

namespace glintboard {

// Disables shared memory between libpulse and the sound server: libpulse 16 hangs if the server
// ends while they negotiate it. libpulse reads this option only from a settings file; the
// environment variable below names one that also includes the user's. Call it in main before
// starting threads.
void shareNoMemoryWithSoundServer();

// The environment variable that this sets.
inline constexpr const char* soundSettingsVariable = "PULSE_CLIENTCONFIG";
// The value of that variable for child processes: what the user has set, or none.
std::optional<std::string> soundSettingsForPrograms();

}  // namespace glintboard
