// SPDX-License-Identifier: MIT
// A Shortcut.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace glintboard {

// An action that an application declares in its desktop entry.
struct ApplicationAction {
  // The desktop file id of the application, without ".desktop".
  std::string desktopId;
  std::string id;
};

// A command of the user, or an action of an application.
struct Shortcut {
  // A UUID in upper case.
  std::string identifier;
  // One line; never empty.
  std::string name;
  // A file or a name in the icon theme; may be empty.
  std::string icon;
  // For /bin/sh; empty for an application's action.
  std::string command;
  std::optional<ApplicationAction> action;
  // The Shortcut's own file, or the application's desktop entry.
  std::filesystem::path file;
};

}  // namespace glintboard
