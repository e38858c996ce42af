// SPDX-License-Identifier: MIT
// The folder for what lives as long as the user's session.
#pragma once

#include <filesystem>
#include <optional>

namespace glintboard {

// $XDG_RUNTIME_DIR, else /run/user/UID, else a folder created in the temporary folder; the first
// that exists, belongs to this user and is writable by no other. None when there is none.
std::optional<std::filesystem::path> runtimeFolder();

}  // namespace glintboard
