// SPDX-License-Identifier: MIT
#include "platform/linux/applications/installed_applications.h"

#include <utility>

namespace glintboard {

InstalledApplications::InstalledApplications(std::vector<DesktopEntry> entries,
                                             KnownApplications known)
    : entries_(std::move(entries)), known_(std::move(known)) {
  for (std::size_t place = 0; place < entries_.size(); ++place) {
    byId_.emplace(entries_[place].id, place);
    byPath_.emplace(entries_[place].path.native(), place);
  }
  for (const auto& [bundleId, id] : known_) {
    knownById_.emplace(id, bundleId);
  }
}

const DesktopEntry* InstalledApplications::withBundleId(const std::string& bundleId) const {
  if (const auto* entry = find(byId_, bundleId)) {
    return entry;
  }
  const auto known = known_.find(bundleId);
  return known == known_.end() ? nullptr : find(byId_, known->second);
}

const std::string& InstalledApplications::bundleIdOf(const DesktopEntry& entry) const {
  const auto known = knownById_.find(entry.id);
  return known == knownById_.end() ? entry.id : known->second;
}

const DesktopEntry* InstalledApplications::atPath(const std::filesystem::path& path) const {
  return find(byPath_, path.native());
}

const DesktopEntry* InstalledApplications::find(const Places& places,
                                                const std::string& key) const {
  const auto found = places.find(key);
  return found == places.end() ? nullptr : &entries_[found->second];
}

}  // namespace glintboard
