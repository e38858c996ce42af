// SPDX-License-Identifier: MIT
// A snapshot of the installed applications.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/applications/identifier_table.h"

namespace glintboard {

// The entries of all installed applications. Immutable: any thread may read it.
class InstalledApplications {
 public:
  // `known` has the identifiers of entries that differ from their ids.
  InstalledApplications(std::vector<DesktopEntry> entries, KnownApplications known);
  InstalledApplications(const InstalledApplications&) = delete;
  InstalledApplications& operator=(const InstalledApplications&) = delete;

  // The entry of an application, or null. Valid as long as this object. The id of an entry is valid
  // too, and wins over the same identifier of another entry.
  const DesktopEntry* withBundleId(const std::string& bundleId) const;
  // The identifier of an application in messages: its known one, else the id of its entry (without
  // ".desktop").
  const std::string& bundleIdOf(const DesktopEntry& entry) const;
  // The entry with that file, or null. Valid as long as this object.
  const DesktopEntry* atPath(const std::filesystem::path& path) const;
  // All entries sorted by id, including those that do not belong in menus.
  const std::vector<DesktopEntry>& all() const { return entries_; }

 private:
  using Positions = std::unordered_map<std::string, std::size_t>;
  const DesktopEntry* find(const Positions& positions, const std::string& key) const;

  std::vector<DesktopEntry> entries_;
  KnownApplications known_;
  std::unordered_map<std::string, std::string> knownById_;
  Positions byId_;
  Positions byPath_;
};

}  // namespace glintboard
