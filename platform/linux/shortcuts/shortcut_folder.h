// SPDX-License-Identifier: MIT
// The Shortcuts that the user made.
#pragma once

#include <vector>

#include "platform/linux/base/xdg_folders.h"
#include "platform/linux/shortcuts/shortcut_file.h"

namespace glintboard {

struct ShortcutFiles {
  struct Skipped {
    std::filesystem::path file;
    std::string reason;
  };
  // Sorted by file name.
  std::vector<Shortcut> shortcuts;
  std::vector<Skipped> skipped;
};

// A folder with a file for each Shortcut. Changes made by several processes at once are made one
// after the other. Every operation blocks on the disk.
class ShortcutFolder {
 public:
  explicit ShortcutFolder(std::filesystem::path path) : path_(std::move(path)) {}

  // Where this user's Shortcuts are.
  static std::filesystem::path pathIn(const XdgFolders& folders);

  const std::filesystem::path& path() const { return path_; }

  // All Shortcuts, and the files that hold none; nothing when there is no folder. Throws
  // std::system_error when the folder cannot be read.
  ShortcutFiles read() const;

  // The changes make the folder where needed. They throw ShortcutFileError when the result would
  // be no Shortcut, another Shortcut has the name, or another change takes too long, and
  // std::system_error.

  // Makes a Shortcut and returns it.
  Shortcut create(const ShortcutChanges& content);
  // Changes a Shortcut of this folder and returns it as it is now.
  Shortcut change(const Shortcut& shortcut, const ShortcutChanges& changes);
  // Removes a Shortcut of this folder.
  void remove(const Shortcut& shortcut);

 private:
  void refuseTakenName(const ShortcutChanges& changes, const std::string& exceptOf) const;

  std::filesystem::path path_;
};

}  // namespace glintboard
