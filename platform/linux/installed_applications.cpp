#include "platform/linux/installed_applications.h"

#include <utility>

namespace glintboard {

InstalledApplications::InstalledApplications(std::vector<DesktopEntry> entries)
    : entries_(std::move(entries)) {
  for (std::size_t place = 0; place < entries_.size(); ++place) {
    byBundleId_.emplace(bundleIdentifier(entries_[place].id), place);
    byPath_.emplace(entries_[place].path.native(), place);
  }
}

const DesktopEntry* InstalledApplications::withBundleId(const std::string& bundleId) const {
  return find(byBundleId_, bundleId);
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
