// SPDX-License-Identifier: MIT
#include "agent_core/icons/app_icon_provider.h"

#include "agent_core/icons/png.h"
#include "protocol/sha256.h"

namespace glintboard {

Awaitable<std::optional<Icon>> AppIconProvider::pngAndRevision(std::string bundleId,
                                                               const WorkspaceClient& workspace) {
  return enter([this, bundleId = std::move(bundleId), &workspace] {
    const Icon* icon = find(bundleId, workspace);
    return icon != nullptr ? std::optional(*icon) : std::nullopt;
  });
}

Awaitable<std::optional<std::string>> AppIconProvider::revision(std::string bundleId,
                                                                const WorkspaceClient& workspace) {
  auto icon = co_await pngAndRevision(std::move(bundleId), workspace);
  co_return icon ? std::optional(std::move(icon->revision)) : std::nullopt;
}

Awaitable<std::map<std::string, Icon>> AppIconProvider::icons(std::vector<std::string> bundleIds,
                                                              const WorkspaceClient& workspace) {
  return enter([this, bundleIds = std::move(bundleIds), &workspace] {
    std::map<std::string, Icon> found;
    for (const auto& bundleId : bundleIds) {
      if (const Icon* icon = find(bundleId, workspace)) {
        found[bundleId] = *icon;
      }
    }
    return found;
  });
}

Awaitable<std::map<std::string, std::string>> AppIconProvider::revisions(
    std::vector<std::string> bundleIds, const WorkspaceClient& workspace) {
  return enter([this, bundleIds = std::move(bundleIds), &workspace] {
    std::map<std::string, std::string> found;
    for (const auto& bundleId : bundleIds) {
      if (const Icon* icon = find(bundleId, workspace)) {
        found[bundleId] = icon->revision;
      }
    }
    return found;
  });
}

std::string AppIconProvider::revision(std::string_view png) {
  return sha256Hex(png);
}

const Icon* AppIconProvider::find(const std::string& bundleId, const WorkspaceClient& workspace) {
  const auto location = workspace.urlForApplication(bundleId);
  if (!location) {
    return nullptr;
  }
  const auto modified = icons_.contentModification(*location);
  const auto cached = cache_.find(bundleId);
  if (cached != cache_.end() && cached->second.contentModificationDate == modified) {
    return &cached->second.icon;
  }
  auto png = pngData(icons_.image(*location, iconSide));
  if (!png) {
    return nullptr;
  }
  auto& entry = cache_[bundleId];
  entry = CacheEntry{Icon{revision(*png), std::move(*png)}, modified};
  return &entry.icon;
}

}  // namespace glintboard
