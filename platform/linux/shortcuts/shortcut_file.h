// SPDX-License-Identifier: MIT
// The file of one of the user's Shortcuts.
#pragma once

#include <stdexcept>

#include "platform/linux/shortcuts/shortcut.h"

namespace glintboard {

inline constexpr const char* shortcutFileExtension = ".shortcut";

// Changes of a Shortcut. Absent fields stay unchanged; an empty icon removes the icon.
struct ShortcutChanges {
  std::optional<std::string> name;
  std::optional<std::string> command;
  std::optional<std::string> icon;
};

// Why a file cannot be used. The text is for the user and does not contain the file's name.
class ShortcutFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads a Shortcut. Its identifier is the file's name. Throws ShortcutFileError. Blocks on the
// disk.
Shortcut readShortcutFile(const std::filesystem::path& file);

// Creates the file, or replaces it by one with `changes` and keeps its other content, including
// comments. Throws ShortcutFileError if the old or the new content cannot be used, or
// std::system_error; the file is then unchanged. Blocks on the disk.
void changeShortcutFile(const std::filesystem::path& file, const ShortcutChanges& changes);

}  // namespace glintboard
