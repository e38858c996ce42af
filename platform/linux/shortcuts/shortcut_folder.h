// SPDX-License-Identifier: MIT
// The folder of the user's Shortcuts.
#pragma once

#include <vector>

#include "platform/linux/base/xdg_folders.h"
#include "platform/linux/shortcuts/shortcut_file.h"

namespace glintboard {

// The content of the folder.
struct ShortcutFiles {
  struct Skipped {
    std::filesystem::path file;
    std::string reason;
  };
  // Sorted by file name.
  std::vector<Shortcut> shortcuts;
  std::vector<Skipped> skipped;
};

// A folder with a file for each Shortcut. A lock serialises the changes of several processes. Every
// operation blocks on the disk; a change also waits for the lock, for at most five seconds.
class ShortcutFolder {
 public:
  explicit ShortcutFolder(std::filesystem::path path) : path_(std::move(path)) {}

  // The path of this user's folder.
  static std::filesystem::path pathIn(const XdgFolders& folders);

  const std::filesystem::path& path() const { return path_; }

  // All Shortcuts, and the files that cannot be used. Empty without a folder. Throws
  // std::system_error when the folder cannot be read.
  ShortcutFiles read() const;

  // The following change the folder and create it if necessary. They throw ShortcutFileError when
  // the result cannot be used, when another Shortcut has the name or when the lock times out, and
  // std::system_error.

  // Creates a Shortcut and returns it.
  Shortcut create(const ShortcutChanges& content);
  // Changes a Shortcut of this folder and returns its new state.
  Shortcut change(const Shortcut& shortcut, const ShortcutChanges& changes);
  // Removes a Shortcut of this folder.
  void remove(const Shortcut& shortcut);

 private:
  void refuseTakenName(const ShortcutChanges& changes, const std::string& exceptOf) const;

  std::filesystem::path path_;
};

}  // namespace glintboard
