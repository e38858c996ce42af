// SPDX-License-Identifier: MIT
// Renders and caches the icons of application keys.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "agent_core/icons/icon.h"
#include "platform/actor.h"
#include "platform/application_icon_client.h"

namespace glintboard {

// The icons of installed applications, cached until an application or its icon changes. An actor on
// the workers: an operation renders in the actor's turn, so no icon is rendered twice at the same
// time. `workspace` must stay valid until the operation has ended.
class AppIconProvider : public Actor {
 public:
  AppIconProvider(asio::any_io_executor executor, ApplicationIconClient icons)
      : Actor(std::move(executor)), icons_(std::move(icons)) {}

  // The icon of an installed application, or none when it is not installed or has no icon.
  Awaitable<std::optional<Icon>> pngAndRevision(std::string bundleId,
                                                const WorkspaceClient& workspace);
  // The revision of that icon.
  Awaitable<std::optional<std::string>> revision(std::string bundleId,
                                                 const WorkspaceClient& workspace);
  // The icons of several applications by bundle identifier, without those that have none. One turn
  // of the actor.
  Awaitable<std::map<std::string, Icon>> icons(std::vector<std::string> bundleIds,
                                               const WorkspaceClient& workspace);
  // The same for the revisions.
  Awaitable<std::map<std::string, std::string>> revisions(std::vector<std::string> bundleIds,
                                                          const WorkspaceClient& workspace);

  // The revision of an icon with these PNG bytes.
  static std::string revision(std::string_view png);

 private:
  struct CacheEntry {
    Icon icon;
    std::optional<ContentModification> contentModificationDate;
  };

  // The cached or newly rendered icon, or null. Valid until the next call.
  const Icon* find(const std::string& bundleId, const WorkspaceClient& workspace);

  ApplicationIconClient icons_;
  std::unordered_map<std::string, CacheEntry> cache_;
};

}  // namespace glintboard
