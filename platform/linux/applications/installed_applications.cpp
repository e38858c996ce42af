// SPDX-License-Identifier: MIT
#include "platform/linux/applications/installed_applications.h"

#include <utility>

namespace glintboard {

InstalledApplications::InstalledApplications(std::vector<DesktopEntry> entries,
                                             KnownApplications known)
    : entries_(std::move(entries)), known_(std::move(known)) {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    byId_.emplace(entries_[i].id, i);
    byPath_.emplace(entries_[i].path.native(), i);
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

const DesktopEntry* InstalledApplications::find(const Positions& positions,
                                                const std::string& key) const {
  const auto found = positions.find(key);
  return found == positions.end() ? nullptr : &entries_[found->second];
}

}  // namespace glintboard
