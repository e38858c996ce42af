// SPDX-License-Identifier: MIT
#include "platform/linux/windows/window_matcher.h"

#include <algorithm>

#include "protocol/text.h"

namespace glintboard {

namespace {

using Entries = std::vector<const DesktopEntry*>;

// The last part of a reverse-DNS id (org.test.Player), or of a Snap's (player_player).
std::string_view lastPart(std::string_view id) {
  const auto before = id.find_last_of("._");
  return before == std::string_view::npos ? id : id.substr(before + 1);
}

void append(const std::unordered_map<std::string, Entries>& names, const std::string& name,
            Entries& found) {
  const auto known = names.find(name);
  if (known == names.end()) {
    return;
  }
  for (const auto* entry : known->second) {
    if (std::find(found.begin(), found.end(), entry) == found.end()) {
      found.push_back(entry);
    }
  }
}

}  // namespace

WindowMatcher::WindowMatcher(std::shared_ptr<const InstalledApplications> installed)
    : installed_(std::move(installed)) {
  // Of several entries with the same name, those that belong in menus have precedence.
  for (const bool noDisplay : {false, true}) {
    for (const auto& entry : installed_->all()) {
      if (entry.noDisplay == noDisplay) {
        addEntry(entry);
      }
    }
  }
}

void WindowMatcher::addEntry(const DesktopEntry& entry) {
  byId_[entry.id].push_back(&entry);
  byFoldedName_[lowercased(entry.id)].push_back(&entry);
  byPartOfId_[lowercased(lastPart(entry.id))].push_back(&entry);
  if (!entry.startupWmClass.empty()) {
    byWindowClass_[entry.startupWmClass].push_back(&entry);
    byFoldedName_[lowercased(entry.startupWmClass)].push_back(&entry);
  }
  // A program with arguments may show other applications, such as a terminal.
  if (entry.command.size() == 1) {
    const auto program = std::filesystem::path(entry.command.front()).filename().string();
    byProgram_[lowercased(program)].push_back(&entry);
  }
}

std::string WindowMatcher::applicationOf(const WindowIdentity& window,
                                         const std::set<std::string>& ofProcess) const {
  // A window of a web application: one process has many, each with an instance name of its own.
  const auto special = byWindowClass_.find(window.instanceName);
  if (special != byWindowClass_.end() && special->second.size() == 1 &&
      lowercased(window.instanceName) != lowercased(window.className)) {
    return installed_->bundleIdOf(*special->second.front());
  }
  Entries found;
  if (!window.applicationId.empty()) {
    append(byId_, window.applicationId, found);
  }
  std::vector<std::string> names;
  for (const auto* name : {&window.applicationId, &window.className, &window.instanceName}) {
    if (!name->empty()) {
      names.push_back(*name);
    }
  }
  for (const auto* known : {&byWindowClass_, &byId_}) {
    for (const auto& name : names) {
      append(*known, name, found);
    }
  }
  for (const auto* known : {&byFoldedName_, &byPartOfId_, &byProgram_}) {
    for (const auto& name : names) {
      append(*known, lowercased(name), found);
    }
  }
  for (const auto& name : names) {
    append(byFoldedName_, lowercased(lastPart(name)), found);
  }
  const auto runs = [&](const DesktopEntry* entry) {
    return ofProcess.contains(installed_->bundleIdOf(*entry));
  };
  const auto running = std::find_if(found.begin(), found.end(), runs);
  if (running != found.end()) {
    return installed_->bundleIdOf(**running);
  }
  if (!found.empty()) {
    return installed_->bundleIdOf(*found.front());
  }
  // A process that belongs to several applications does not identify one.
  return ofProcess.size() == 1 ? *ofProcess.begin() : "";
}

}  // namespace glintboard
