// SPDX-License-Identifier: MIT
// Reads whole files and replaces files atomically.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace glintboard {

// Replaces the file at `path` with `data`: a temporary file beside it is written, synced and
// renamed, and the folder synced, so that a reader, also after a crash, finds either the old or the
// new content. The file gets `mode`, whatever mode it had before. Throws std::system_error and
// leaves the previous file intact. Blocks on the disk.
void writeAtomically(const std::filesystem::path& path, std::string_view data, mode_t mode);

// The whole content of the file at `path`. Throws std::system_error, with
// std::errc::no_such_file_or_directory for a missing file. Blocks on the disk.
std::string readWholeFile(const std::filesystem::path& path);
// The same for repeated reads: returns a view of the content in `buffer`, which grows as needed.
// Reading stops early when `isWhole` returns true for the content read so far, which saves the
// system call that finds the end of the file. `isWhole` may be called several times.
std::string_view readWholeFile(const std::filesystem::path& path, std::string& buffer,
                               const std::function<bool(std::string_view)>& isWhole = {});

}  // namespace glintboard
