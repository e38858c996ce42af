// What is installed, at one moment.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/linux/desktop_entry.h"

namespace glintboard {

// The bundle identifier of the application with a desktop file id (without ".desktop"). The one
// place where the two meet.
inline std::string bundleIdentifier(const std::string& desktopId) {
  return desktopId;
}

// The entries of all installed applications. Does not change: any thread may read it.
class InstalledApplications {
 public:
  explicit InstalledApplications(std::vector<DesktopEntry> entries);
  InstalledApplications(const InstalledApplications&) = delete;
  InstalledApplications& operator=(const InstalledApplications&) = delete;

  // The entry of an application, or null; it lives as long as this object.
  const DesktopEntry* withBundleId(const std::string& bundleId) const;
  const DesktopEntry* atPath(const std::filesystem::path& path) const;
  // Every entry, also those that are not to be offered in menus, sorted by id.
  const std::vector<DesktopEntry>& all() const { return entries_; }

 private:
  using Places = std::unordered_map<std::string, std::size_t>;
  const DesktopEntry* find(const Places& places, const std::string& key) const;

  std::vector<DesktopEntry> entries_;
  Places byBundleId_;
  Places byPath_;
};

}  // namespace glintboard
