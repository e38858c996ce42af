// SPDX-License-Identifier: MIT
// Files that are never seen half written.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace glintboard {

// Replaces the file at `path` with `data`: a temporary file beside it is written, synced and
// renamed, and the folder synced, so that a reader or a crash sees the old content or the new,
// never a part. The file gets `mode` (an existing one keeps none of its own). Throws
// std::system_error; the previous file is then intact. Blocks on the disk.
void writeAtomically(const std::filesystem::path& path, std::string_view data, mode_t mode);

// The whole content of the file at `path`. Throws std::system_error, with
// std::errc::no_such_file_or_directory when there is none.
std::string readWholeFile(const std::filesystem::path& path);
// The same for who reads again and again: into `buffer`, which grows as needed, and in which the
// content then is. `isWhole` may spare the system the question whether there is more, when what was
// read cannot be a part only; it is called again if it denies that.
std::string_view readWholeFile(const std::filesystem::path& path, std::string& buffer,
                               const std::function<bool(std::string_view)>& isWhole = {});

}  // namespace glintboard
