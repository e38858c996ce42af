// SPDX-License-Identifier: MIT
// What "run" does.
#pragma once

#include <filesystem>

#include "platform/linux/shortcuts/shortcut.h"

namespace glintboard::shortcuts {

// The exit codes of shells for a command that may not be executed, for one that is missing, and
// after a signal.
constexpr int notPermittedExitCode = 126;
constexpr int missingExitCode = 127;
constexpr int signalExitCode = 128;

// Runs a Shortcut to its end, or starts an application's action, and returns the exit code: the
// command's own, or 128 + n after signal n. A command runs in the user's home with no input, with
// this process's output, and in its process group, so that whoever ends that ends the command too.
// Interrupts from the keyboard end the command alone. Says on standard error why a command was
// cancelled or may not be run, and what program it misses; every other failure is the command's to
// tell. Throws
// std::runtime_error for what cannot be started. For a process of one thread.
int runShortcut(const Shortcut& shortcut, const std::filesystem::path& home);

}  // namespace glintboard::shortcuts
