// SPDX-License-Identifier: MIT
// The base folders of the XDG Base Directory rules.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace glintboard {

// All paths are absolute; the folders need not exist. Lists are in order of precedence.
struct XdgFolders {
  std::filesystem::path home;
  std::filesystem::path dataHome;
  std::vector<std::filesystem::path> dataDirs;
  std::filesystem::path stateHome;
  std::filesystem::path configHome;
  std::vector<std::filesystem::path> configDirs;
  // XDG_CURRENT_DESKTOP: the names of the running desktop; may be empty.
  std::string currentDesktop;

  // `dataHome` and then `dataDirs`, each followed by `name`.
  std::vector<std::filesystem::path> dataFolders(const std::filesystem::path& name) const;
  // `configHome` and then `configDirs`, each followed by `name`.
  std::vector<std::filesystem::path> configFolders(const std::filesystem::path& name) const;
};

// The folders that this process's environment names. Not safe while another thread changes the
// environment.
XdgFolders xdgFoldersOfEnvironment();

}  // namespace glintboard
