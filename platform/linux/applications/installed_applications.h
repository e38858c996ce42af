// SPDX-License-Identifier: MIT
// What is installed, at one moment.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/applications/identifier_table.h"

namespace glintboard {

// The entries of all installed applications. Does not change: any thread may read it.
class InstalledApplications {
 public:
  // `known` names entries by identifiers that are not their ids.
  InstalledApplications(std::vector<DesktopEntry> entries, KnownApplications known);
  InstalledApplications(const InstalledApplications&) = delete;
  InstalledApplications& operator=(const InstalledApplications&) = delete;

  // The entry of an application, or null; it lives as long as this object. An application is found
  // under the id of its entry too, which wins over an identifier that was given to another.
  const DesktopEntry* withBundleId(const std::string& bundleId) const;
  // The one identifier that an application goes by: one that is known everywhere, else the id of
  // its entry (without ".desktop").
  const std::string& bundleIdOf(const DesktopEntry& entry) const;
  const DesktopEntry* atPath(const std::filesystem::path& path) const;
  // Every entry, also those that are not to be offered in menus, sorted by id.
  const std::vector<DesktopEntry>& all() const { return entries_; }

 private:
  using Places = std::unordered_map<std::string, std::size_t>;
  const DesktopEntry* find(const Places& places, const std::string& key) const;

  std::vector<DesktopEntry> entries_;
  KnownApplications known_;
  std::unordered_map<std::string, std::string> knownById_;
  Places byId_;
  Places byPath_;
};

}  // namespace glintboard
