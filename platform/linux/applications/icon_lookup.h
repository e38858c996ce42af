// SPDX-License-Identifier: MIT
// Finds the files of icons by name.
#pragma once

#include <sys/stat.h>

#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/linux/applications/icon_theme.h"
#include "platform/linux/base/xdg_folders.h"

namespace glintboard {

// Searches the user's icon theme, its parents, the hicolor theme and the folders of unthemed icons.
// Reads the themes at the first call and again after a change. Thread-safe. Blocks on the disk.
class IconLookup {
 public:
  explicit IconLookup(XdgFolders folders);

  // The best file for a square of 128 pixels, or empty. `icon` is an absolute path or a name, with
  // or without the extension of an image file. The symbolic variant of an icon ("NAME-symbolic")
  // replaces a missing regular one and vice versa. Sets `status` for the file found.
  std::filesystem::path find(const std::string& icon, struct stat& status);
  std::filesystem::path find(const std::string& icon) {
    struct stat ignored{};
    return find(icon, ignored);
  }

 private:
  // Reads the settings and themes again if they have changed. The private functions require
  // `mutex_`.
  void refresh();
  void readThemes();
  // Appends the folders of a theme and its parents. `seen` has the themes that are already
  // included.
  void addThemes(const std::string& name, std::vector<std::string>& seen);
  std::filesystem::path search(const std::string& name, struct stat& status) const;
  std::filesystem::path searchExactly(const std::string& name, struct stat& status) const;

  const XdgFolders folders_;
  const std::vector<std::filesystem::path> bases_;

  std::mutex mutex_;
  std::chrono::steady_clock::time_point checked_;
  std::string userTheme_;
  // When to query the user's theme once more.
  std::optional<std::chrono::steady_clock::time_point> askAgain_;
  FileStamps settings_;
  FileStamps themes_;
  // The folders to search, the best first.
  std::vector<std::filesystem::path> iconFolders_;
  std::unordered_map<std::string, std::filesystem::path> found_;
};

}  // namespace glintboard
