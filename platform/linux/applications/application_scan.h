// SPDX-License-Identifier: MIT
// Finds what is installed, once.
#pragma once

#include <functional>

#include "platform/linux/applications/desktop_entry.h"

namespace glintboard {

using FolderVisitor = std::function<void(const std::filesystem::path& folder)>;

// The entries of the applications that are installed in `folders`, in order of precedence, and in
// the folders below them; sorted by id. `visit` is told each folder before it is read. Blocks on
// the disk for a few milliseconds.
std::vector<DesktopEntry> scanApplications(const std::vector<std::filesystem::path>& folders,
                                           const FolderVisitor& visit);

}  // namespace glintboard
