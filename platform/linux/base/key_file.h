// SPDX-License-Identifier: MIT
// Files of `[group]` and `key=value` lines, as desktop entries and icon themes are.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/linux/base/glib_pointers.h"

namespace glintboard {

// Reads such a file; null when it is missing, no regular file, larger than 4 MiB or damaged.
GLibPointer<GKeyFile> loadKeyFile(const std::filesystem::path& path,
                                  GKeyFileFlags flags = G_KEY_FILE_NONE);

// The text of a key with its escapes resolved, or empty.
std::string textOf(GKeyFile* file, const char* group, const char* key);
// Whether a key is there and true.
bool flagOf(GKeyFile* file, const char* group, const char* key);
// A whole number, or `fallback`.
int numberOf(GKeyFile* file, const char* group, const char* key, int fallback);
// The comma-separated texts of a key.
std::vector<std::string> commaListOf(GKeyFile* file, const char* group, const char* key);

}  // namespace glintboard
