// SPDX-License-Identifier: MIT
// The file of one Shortcut that the user made.
#pragma once

#include <stdexcept>

#include "platform/linux/shortcuts/shortcut.h"

namespace glintboard {

inline constexpr const char* shortcutFileExtension = ".shortcut";

// What to set in a Shortcut's file; an empty icon removes it.
struct ShortcutChanges {
  std::optional<std::string> name;
  std::optional<std::string> command;
  std::optional<std::string> icon;
};

// Why a file cannot be used, for the user; does not name the file.
class ShortcutFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads the Shortcut in `file`, whose identifier is the file's name. Throws ShortcutFileError.
// Blocks on the disk.
Shortcut readShortcutFile(const std::filesystem::path& file);

// Makes the file or replaces it by one with `changes`; what else is in it, comments too, is kept.
// Throws ShortcutFileError, with the file as it was when it or the result cannot be used, or
// std::system_error. Blocks on the disk.
void changeShortcutFile(const std::filesystem::path& file, const ShortcutChanges& changes);

}  // namespace glintboard
