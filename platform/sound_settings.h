// SPDX-License-Identifier: MIT
// How the library that talks to the sound server is set up in this process.
#pragma once

#include <optional>
#include <string>

namespace glintboard {

// Keeps libpulse from sharing memory with the server: when the server ends while they agree on
// that, libpulse 16 never returns. Only its settings can refuse it, and only the environment can
// name others than the user's, which these include. For main, before there are other threads.
void shareNoMemoryWithSoundServer();

// The variable of the environment that this changes.
inline constexpr const char* soundSettingsVariable = "PULSE_CLIENTCONFIG";
// What programs that are started are to have there, as if it had not been changed.
std::optional<std::string> soundSettingsForPrograms();

}  // namespace glintboard
