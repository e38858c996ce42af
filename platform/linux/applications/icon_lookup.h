// SPDX-License-Identifier: MIT
// Finds the files of icons that are given by name.
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

// Looks in the user's icon theme, the themes it inherits, the common theme and the folders of
// unthemed icons. Themes are read at the first question and again after they changed. Safe on any
// thread; blocks on the disk.
class IconLookup {
 public:
  explicit IconLookup(XdgFolders folders);

  // The best file for a square of 128 pixels, or empty. `icon` is an absolute path or a name, with
  // or without the extension of an image file. Where a theme has but the coloured one of an icon
  // and its symbol ("NAME-symbolic"), it stands in for the other. `status` is set to that of the
  // file found.
  std::filesystem::path find(const std::string& icon, struct stat& status);
  std::filesystem::path find(const std::string& icon) {
    struct stat ignored{};
    return find(icon, ignored);
  }

 private:
  void refresh();
  void readThemes();
  void addThemes(const std::string& name, std::vector<std::string>& seen);
  std::filesystem::path search(const std::string& name, struct stat& status) const;
  std::filesystem::path searchExactly(const std::string& name, struct stat& status) const;

  const XdgFolders folders_;
  const std::vector<std::filesystem::path> bases_;

  std::mutex mutex_;
  std::chrono::steady_clock::time_point checked_;
  std::string userTheme_;
  // When to ask for the user's theme once more.
  std::optional<std::chrono::steady_clock::time_point> askAgain_;
  FileStamps settings_;
  FileStamps themes_;
  // Where to look, best first.
  std::vector<std::filesystem::path> iconFolders_;
  std::unordered_map<std::string, std::filesystem::path> found_;
};

}  // namespace glintboard
