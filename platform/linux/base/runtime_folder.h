// SPDX-License-Identifier: MIT
// The folder for files of the user's session.
#pragma once

#include <filesystem>
#include <optional>

namespace glintboard {

// $XDG_RUNTIME_DIR, else /run/user/UID, else a new folder in the temporary folder: the first that
// exists, belongs to this user and is writable only by this user. None if all fail.
std::optional<std::filesystem::path> runtimeFolder();

}  // namespace glintboard
