// SPDX-License-Identifier: MIT
// The command "run".
#pragma once

#include <filesystem>

#include "platform/linux/shortcuts/shortcut.h"

namespace glintboard::shortcuts {

// Exit codes, as shells use them: the command cannot be executed; it does not exist; it was ended
// by a signal, whose number is added.
constexpr int notPermittedExitCode = 126;
constexpr int missingExitCode = 127;
constexpr int signalExitCode = 128;

// Runs a Shortcut and waits for its end, or starts an application's action. Returns the command's
// exit code, or 128 + n after signal n. A command runs in the user's home folder without input,
// with this process's output and in its process group, so that a signal to the group ends both. An
// interrupt from the keyboard ends the command alone. Prints on standard error why a command was
// cancelled or must not be run, and which program it lacks; other errors are printed by the
// command. Throws std::runtime_error if it cannot be started. The process must have one thread.
int runShortcut(const Shortcut& shortcut, const std::filesystem::path& home);

}  // namespace glintboard::shortcuts
