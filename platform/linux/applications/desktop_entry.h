// SPDX-License-Identifier: MIT
// The desktop entry file of one application.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace glintboard {

struct DesktopEntry {
  // Something the application can be started to do, such as opening a new window.
  struct Action {
    std::string id;
    // In the user's language.
    std::string name;
    // As the entry's; may be empty.
    std::string icon;
  };

  // The desktop file id without ".desktop".
  std::string id;
  std::filesystem::path path;
  // When the file was changed, as it was read.
  std::filesystem::file_time_type modified;
  // In the user's language; the file's name without its extension where it has none.
  std::string name;
  // A file or a name to look up in the icon theme; may be empty.
  std::string icon;
  // The program and its fixed arguments: arguments with a field code ("%U") are left out. Empty
  // when there is no usable Exec line.
  std::vector<std::string> command;
  std::string tryExec;
  // The window class of the application's windows, where it says so.
  std::string startupWmClass;
  // Marked as deleted.
  bool hidden = false;
  // Not to be offered in menus.
  bool noDisplay = false;
  bool dbusActivatable = false;
  // Those that have a name.
  std::vector<Action> actions;
};

// Reads an application's entry; none when the file cannot be read or is no application's. Works
// where GIO refuses the entry because its program is missing. Blocks on the disk.
std::optional<DesktopEntry> readDesktopEntry(const std::filesystem::path& path, std::string id);

// The file of a program that is named as in an entry: an absolute path, or a name to look for in
// PATH. Empty when there is none that may be executed.
std::filesystem::path findProgram(const std::string& program);

}  // namespace glintboard
