// SPDX-License-Identifier: MIT
#include "platform/linux/applications/icon_lookup.h"

#include <algorithm>

#include "platform/file_name.h"
#include "platform/linux/applications/desktop_icon_theme.h"

namespace glintboard {

namespace {

namespace fs = std::filesystem;

constexpr const char* extensions[] = {".png", ".svg", ".svgz", ".xpm"};

std::vector<fs::path> iconBases(const XdgFolders& folders) {
  auto bases = folders.dataFolders("icons");
  bases.insert(bases.begin(), folders.home / ".icons");
  return bases;
}

bool isFile(const fs::path& path, struct stat& status) {
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

IconLookup::IconLookup(XdgFolders folders)
    : folders_(std::move(folders)), bases_(iconBases(folders_)) {}

fs::path IconLookup::find(const std::string& icon, struct stat& status) {
  if (icon.starts_with('/')) {
    return isFile(icon, status) ? fs::path(icon) : fs::path();
  }
  if (!isFileName(icon)) {
    return {};
  }
  std::string name = icon;
  for (const std::string extension : extensions) {
    if (name.ends_with(extension)) {
      name.resize(name.size() - extension.size());
      break;
    }
  }
  const std::scoped_lock lock(mutex_);
  refresh();
  const auto [known, isNew] = found_.try_emplace(name);
  // The cached file may have been deleted since the last check of its folder.
  if (isNew || (!known->second.empty() && !isFile(known->second, status))) {
    known->second = search(name, status);
  }
  return known->second;
}

void IconLookup::refresh() {
  // Shorter than the delay of ApplicationIndex, so that callers that react to a newly installed
  // application find its icon; long enough for the many look-ups of one deck.
  constexpr std::chrono::milliseconds trusted{50};
  const auto now = std::chrono::steady_clock::now();
  if (now - checked_ < trusted) {
    return;
  }
  checked_ = now;
  bool changed = !themes_.unchanged();
  // The portal may report a changed setting later than the file changes.
  constexpr std::chrono::seconds portalDelay{2};
  const bool settingsChanged = !settings_.unchanged();
  if (settingsChanged || (askAgain_ && now >= *askAgain_)) {
    askAgain_ = settingsChanged ? std::optional(now + portalDelay) : std::nullopt;
    settings_ = {};
    auto theme = desktopIconTheme(folders_, settings_);
    changed |= theme != userTheme_;
    userTheme_ = std::move(theme);
  }
  if (changed) {
    readThemes();
  }
}

void IconLookup::readThemes() {
  themes_ = {};
  iconFolders_.clear();
  found_.clear();
  std::vector<std::string> seen{"hicolor"};
  addThemes(userTheme_, seen);
  if (iconFolders_.empty()) {
    addThemes("Adwaita", seen);
    addThemes("breeze", seen);
  }
  seen.clear();
  addThemes("hicolor", seen);
  auto unthemed = folders_.dataFolders("pixmaps");
  unthemed.insert(unthemed.begin(), bases_.begin(), bases_.end());
  for (auto& folder : unthemed) {
    themes_.note(folder);
    iconFolders_.push_back(std::move(folder));
  }
}

void IconLookup::addThemes(const std::string& name, std::vector<std::string>& seen) {
  constexpr std::size_t mostThemes = 64;
  if (seen.size() >= mostThemes || !isFileName(name) ||
      std::find(seen.begin(), seen.end(), name) != seen.end()) {
    return;
  }
  seen.push_back(name);
  auto theme = readIconTheme(name, bases_, themes_);
  std::move(theme.folders.begin(), theme.folders.end(), std::back_inserter(iconFolders_));
  for (const auto& parent : theme.parents) {
    addThemes(parent, seen);
  }
}

fs::path IconLookup::search(const std::string& name, struct stat& status) const {
  const std::string symbolic = "-symbolic";
  auto found = searchExactly(name, status);
  if (found.empty()) {
    found = searchExactly(
        name.ends_with(symbolic) ? name.substr(0, name.size() - symbolic.size()) : name + symbolic,
        status);
  }
  return found;
}

fs::path IconLookup::searchExactly(const std::string& name, struct stat& status) const {
  for (const auto& folder : iconFolders_) {
    for (const char* extension : extensions) {
      auto file = folder / (name + extension);
      if (isFile(file, status)) {
        return file;
      }
    }
  }
  return {};
}

}  // namespace glintboard
