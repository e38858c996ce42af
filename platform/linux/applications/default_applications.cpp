// SPDX-License-Identifier: MIT
#include "platform/linux/applications/default_applications.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "platform/linux/base/key_file.h"
#include "protocol/text.h"

namespace glintboard {
namespace {

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream list(text);
  for (std::string part; std::getline(list, part, separator);) {
    if (!part.empty()) {
      parts.push_back(part);
    }
  }
  return parts;
}

void appendId(std::vector<std::string>& ids, std::string file) {
  const std::string ending = ".desktop";
  if (file.ends_with(ending)) {
    file.resize(file.size() - ending.size());
    ids.push_back(std::move(file));
  }
}

// The names of a list file: with each desktop's name as prefix, then the plain name.
std::vector<std::string> namesByDesktop(const XdgFolders& folders, const std::string& name) {
  std::vector<std::string> names;
  for (const auto& desktop : desktopNames(folders)) {
    names.push_back(desktop + "-" + name);
  }
  names.push_back(name);
  return names;
}

void appendIds(std::vector<std::string>& ids, GKeyFile* file, const char* group, const char* key) {
  for (auto& entry : split(textOf(file, group, key), ';')) {
    appendId(ids, std::move(entry));
  }
}

bool isDesktop(const XdgFolders& folders, const char* desktop) {
  return std::ranges::count(desktopNames(folders), desktop) != 0;
}

// Appends the entries with that id or program. Xfce stores the program of a terminal.
void appendEntriesOf(std::vector<std::string>& ids, const std::string& program,
                     const std::vector<DesktopEntry>& installed) {
  for (const auto& entry : installed) {
    const bool isProgram = entry.command.size() == 1 &&
                           std::filesystem::path(entry.command.front()).filename() == program;
    if (entry.id == program || isProgram) {
      ids.push_back(entry.id);
    }
  }
}

}  // namespace

std::vector<std::string> desktopNames(const XdgFolders& folders) {
  auto names = split(folders.currentDesktop, ':');
  for (auto& name : names) {
    name = lowercased(name);
  }
  return names;
}

TypeApplications applicationsForType(const XdgFolders& folders, const char* mimeType) {
  const std::string plainName = "mimeapps.list";
  TypeApplications found;
  std::vector<std::string> removed;
  const auto add = [&](GKeyFile* file, const char* group) {
    std::vector<std::string> ids;
    appendIds(ids, file, group, mimeType);
    std::ranges::copy_if(ids, std::back_inserter(found.others), [&](const std::string& id) {
      return std::ranges::count(removed, id) == 0;
    });
  };
  const auto readLists = [&](const std::filesystem::path& folder) {
    for (const auto& name : namesByDesktop(folders, plainName)) {
      const auto file = loadKeyFile(folder / name);
      if (!file) {
        continue;
      }
      appendIds(found.defaults, file.get(), "Default Applications", mimeType);
      // Only the plain list may add and remove associations.
      if (name == plainName) {
        add(file.get(), "Added Associations");
        appendIds(removed, file.get(), "Removed Associations", mimeType);
      }
    }
  };
  std::ranges::for_each(folders.configFolders(""), readLists);
  for (const auto& folder : folders.dataFolders("applications")) {
    readLists(folder);
    if (const auto cache = loadKeyFile(folder / "mimeinfo.cache")) {
      add(cache.get(), "MIME Cache");
    }
  }
  return found;
}

std::vector<std::string> preferredTerminals(const XdgFolders& folders,
                                            const std::vector<DesktopEntry>& installed) {
  std::vector<std::string> ids;
  for (const auto& name : namesByDesktop(folders, "xdg-terminals.list")) {
    for (const auto& path : folders.configFolders(name)) {
      std::ifstream lines(path);
      for (std::string line; std::getline(lines, line);) {
        // An entry may be followed by the name of one of its actions.
        appendId(ids, line.substr(0, line.find(':')));
      }
    }
  }
  if (isDesktop(folders, "kde")) {
    for (const auto& path : folders.configFolders("kdeglobals")) {
      if (const auto file = loadKeyFile(path)) {
        appendIds(ids, file.get(), "General", "TerminalService");
      }
    }
  }
  if (isDesktop(folders, "xfce")) {
    const std::string key = "TerminalEmulator=";
    for (const auto& path : folders.configFolders("xfce4/helpers.rc")) {
      std::ifstream lines(path);
      for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(key)) {
          appendEntriesOf(ids, line.substr(key.size()), installed);
        }
      }
    }
  }
  return ids;
}

std::vector<std::pair<std::filesystem::path, std::vector<std::string>>> defaultApplicationFiles(
    const XdgFolders& folders) {
  std::vector<std::pair<std::filesystem::path, std::vector<std::string>>> files;
  for (const auto& folder : folders.configFolders("")) {
    files.emplace_back(folder, std::vector<std::string>{".list", "kdeglobals"});
  }
  if (isDesktop(folders, "xfce")) {
    for (const auto& folder : folders.configFolders("xfce4")) {
      files.emplace_back(folder, std::vector<std::string>{"helpers.rc"});
    }
  }
  return files;
}

}  // namespace glintboard
