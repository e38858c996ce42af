// SPDX-License-Identifier: MIT
// Detects changes of files by their modification times.
#pragma once

#include <filesystem>
#include <map>
#include <optional>

namespace glintboard {

// For one thread. Blocks on the disk.
class FileStamps {
 public:
  // Records the modification time of `path`, or its absence. Returns whether it exists. Call it
  // before reading the file or folder.
  bool note(const std::filesystem::path& path);
  // The same for a folder and its direct entries.
  void noteFolder(const std::filesystem::path& folder);
  // Whether everything recorded is unchanged. False when nothing was recorded, and when a file had
  // been modified so recently that the next change may have the same time.
  bool unchanged() const;

 private:
  using Stamp = std::optional<std::filesystem::file_time_type>;
  static Stamp stampOf(const std::filesystem::path& path);

  std::map<std::filesystem::path, Stamp> stamps_;
  bool settled_ = true;
};

}  // namespace glintboard
