#include "platform/linux/default_applications.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "platform/linux/key_file.h"

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

// A list's own name and, before it, the name with each desktop's in front.
std::vector<std::string> namesByDesktop(const XdgFolders& folders, const std::string& name) {
  std::vector<std::string> names;
  for (const auto& desktop : desktopNames(folders)) {
    names.push_back(desktop + "-" + name);
  }
  names.push_back(name);
  return names;
}

void appendFromKeyFile(std::vector<std::string>& ids, const std::filesystem::path& path,
                       const char* group, const char* key) {
  const auto file = loadKeyFile(path);
  if (!file) {
    return;
  }
  for (auto& entry : split(textOf(file.get(), group, key), ';')) {
    appendId(ids, std::move(entry));
  }
}

}  // namespace

std::vector<std::string> desktopNames(const XdgFolders& folders) {
  auto names = split(folders.currentDesktop, ':');
  for (auto& name : names) {
    std::ranges::transform(name, name.begin(), [](char letter) {
      return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
  }
  return names;
}

std::vector<std::string> preferredForType(const XdgFolders& folders, const char* mimeType) {
  std::vector<std::string> ids;
  for (const auto& name : namesByDesktop(folders, "mimeapps.list")) {
    for (const auto& file : folders.configFolders(name)) {
      appendFromKeyFile(ids, file, "Default Applications", mimeType);
    }
  }
  for (const auto& name : namesByDesktop(folders, "mimeapps.list")) {
    for (const auto& file : folders.dataFolders("applications/" + name)) {
      appendFromKeyFile(ids, file, "Default Applications", mimeType);
    }
  }
  for (const auto& file : folders.dataFolders("applications/mimeinfo.cache")) {
    appendFromKeyFile(ids, file, "MIME Cache", mimeType);
  }
  return ids;
}

std::vector<std::string> preferredTerminals(const XdgFolders& folders) {
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
  return ids;
}

}  // namespace glintboard
