// SPDX-License-Identifier: MIT
// Reads the applications folders once.
#pragma once

#include <functional>

#include "platform/linux/applications/desktop_entry.h"

namespace glintboard {

// Called for each folder before it is read.
using FolderVisitor = std::function<void(const std::filesystem::path& folder)>;

// The entries of the applications in `folders`, which are in order of precedence, and in all
// folders below them; sorted by id. Blocks on the disk for a few milliseconds.
std::vector<DesktopEntry> scanApplications(const std::vector<std::filesystem::path>& folders,
                                           const FolderVisitor& visit);

}  // namespace glintboard
