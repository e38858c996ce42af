// SPDX-License-Identifier: MIT
// Remembers when some files and folders were last modified.
#pragma once

#include <filesystem>
#include <map>
#include <optional>

namespace glintboard {

class FileStamps {
 public:
  // Remembers the modification time of `path`, or that there is nothing. Returns whether there is
  // something. Call it before reading the file or folder.
  bool note(const std::filesystem::path& path);
  // Remembers those of a folder and of what lies directly in it.
  void noteFolder(const std::filesystem::path& folder);
  // Whether all that was noted is still so; false when nothing was noted, and when something had
  // been modified so shortly before it was noted that its time need not tell of the next change.
  // Blocks on the disk.
  bool unchanged() const;

 private:
  using Stamp = std::optional<std::filesystem::file_time_type>;
  static Stamp stampOf(const std::filesystem::path& path);

  std::map<std::filesystem::path, Stamp> stamps_;
  bool settled_ = true;
};

}  // namespace glintboard
