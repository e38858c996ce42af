// SPDX-License-Identifier: MIT
// The desktop entry file of one application.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace glintboard {

struct DesktopEntry {
  // A command of the application besides starting it, such as opening a new window.
  struct Action {
    std::string id;
    // The name in the user's language.
    std::string name;
    // A file or a name in the icon theme; may be empty.
    std::string icon;
  };

  // The desktop file id without ".desktop".
  std::string id;
  std::filesystem::path path;
  // The file's modification time when it was read.
  std::filesystem::file_time_type modified;
  // The name in the user's language; the file's name without extension if the entry has none.
  std::string name;
  // A file or a name in the icon theme; may be empty.
  std::string icon;
  // The program and its fixed arguments, without arguments that contain a field code ("%U"). Empty
  // without a usable Exec line.
  std::vector<std::string> command;
  std::string tryExec;
  // The class of the application's windows; may be empty.
  std::string startupWmClass;
  // Marked as deleted: the application counts as not installed.
  bool hidden = false;
  // Does not belong in menus.
  bool noDisplay = false;
  bool dbusActivatable = false;
  // The actions that have a name.
  std::vector<Action> actions;
};

// Reads the entry of an application; none when the file cannot be read or describes something else.
// Unlike GIO, it accepts entries whose program is missing. Blocks on the disk.
std::optional<DesktopEntry> readDesktopEntry(const std::filesystem::path& path, std::string id);

// The executable file of a program that is an absolute path or a name in PATH; empty without one.
std::filesystem::path findProgram(const std::string& program);

}  // namespace glintboard
