// SPDX-License-Identifier: MIT
#include "platform/linux/base/xdg_folders.h"

#include <glib.h>

#include <cstdlib>
#include <sstream>
#include <string>

namespace glintboard {

namespace {

using std::filesystem::path;

// Ignores a relative path in the environment.
path folderFrom(const char* variable, const path& fallback) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value == '/' ? path(value) : fallback;
}

std::vector<path> listFrom(const char* variable, const char* fallback) {
  const char* value = std::getenv(variable);
  std::istringstream list(value != nullptr && *value != '\0' ? value : fallback);
  std::vector<path> folders;
  for (std::string folder; std::getline(list, folder, ':');) {
    if (folder.starts_with('/')) {
      folders.emplace_back(folder);
    }
  }
  return folders;
}

std::vector<path> below(const path& first, const std::vector<path>& rest, const path& name) {
  std::vector<path> folders{first / name};
  for (const auto& folder : rest) {
    folders.push_back(folder / name);
  }
  return folders;
}

}  // namespace

std::vector<path> XdgFolders::dataFolders(const path& name) const {
  return below(dataHome, dataDirs, name);
}

std::vector<path> XdgFolders::configFolders(const path& name) const {
  return below(configHome, configDirs, name);
}

XdgFolders xdgFoldersOfEnvironment() {
  XdgFolders folders;
  folders.home = g_get_home_dir();
  folders.dataHome = folderFrom("XDG_DATA_HOME", folders.home / ".local/share");
  // Without XDG_DATA_DIRS, the applications of Flatpak and Snap are included too.
  const auto usual = (folders.dataHome / "flatpak/exports/share").string() +
                     ":/var/lib/flatpak/exports/share:/usr/local/share:/usr/share"
                     ":/var/lib/snapd/desktop";
  folders.dataDirs = listFrom("XDG_DATA_DIRS", usual.c_str());
  folders.stateHome = folderFrom("XDG_STATE_HOME", folders.home / ".local/state");
  folders.configHome = folderFrom("XDG_CONFIG_HOME", folders.home / ".config");
  folders.configDirs = listFrom("XDG_CONFIG_DIRS", "/etc/xdg");
  const char* desktop = std::getenv("XDG_CURRENT_DESKTOP");
  folders.currentDesktop = desktop == nullptr ? "" : desktop;
  return folders;
}

}  // namespace glintboard
