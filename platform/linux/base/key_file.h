// SPDX-License-Identifier: MIT
// Reads files of `[group]` and `key=value` lines, such as desktop entries and icon themes.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/linux/base/glib_pointers.h"

namespace glintboard {

// Reads a file; null when it is missing, not a regular file, larger than 4 MiB or damaged. Blocks
// on the disk.
GLibPointer<GKeyFile> loadKeyFile(const std::filesystem::path& path,
                                  GKeyFileFlags flags = G_KEY_FILE_NONE);

// The unescaped text of a key, or empty.
std::string textOf(GKeyFile* file, const char* group, const char* key);
// Whether a key exists and is true.
bool flagOf(GKeyFile* file, const char* group, const char* key);
// The integer of a key, or `fallback`.
int numberOf(GKeyFile* file, const char* group, const char* key, int fallback);
// The comma-separated texts of a key.
std::vector<std::string> commaListOf(GKeyFile* file, const char* group, const char* key);

}  // namespace glintboard
