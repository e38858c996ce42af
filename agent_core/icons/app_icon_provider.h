// SPDX-License-Identifier: MIT
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

// The icons of installed applications, rendered at most once for each change of an application.
// An actor of the workers: rendering is done in its turn, so that no icon is rendered twice at
// once. `workspace` must stay valid until an operation has ended.
class AppIconProvider : public Actor {
 public:
  AppIconProvider(asio::any_io_executor executor, ApplicationIconClient icons)
      : Actor(std::move(executor)), icons_(std::move(icons)) {}

  // The icon of an installed application, or none when it is not installed or has no icon.
  Awaitable<std::optional<Icon>> pngAndRevision(std::string bundleId,
                                                const WorkspaceClient& workspace);
  Awaitable<std::optional<std::string>> revision(std::string bundleId,
                                                 const WorkspaceClient& workspace);
  // Those that there are of several, in one turn, by bundle identifier.
  Awaitable<std::map<std::string, Icon>> icons(std::vector<std::string> bundleIds,
                                               const WorkspaceClient& workspace);
  // The revisions of all those that have an icon, in one turn.
  Awaitable<std::map<std::string, std::string>> revisions(std::vector<std::string> bundleIds,
                                                          const WorkspaceClient& workspace);

  // The revision of PNG bytes.
  static std::string revision(std::string_view png);

 private:
  struct CacheEntry {
    Icon icon;
    std::optional<ContentModification> contentModificationDate;
  };

  Awaitable<std::optional<Icon>> doPngAndRevision(std::string bundleId,
                                                  const WorkspaceClient& workspace);
  Awaitable<std::map<std::string, Icon>> doIcons(std::vector<std::string> bundleIds,
                                                 const WorkspaceClient& workspace);
  Awaitable<std::map<std::string, std::string>> doRevisions(std::vector<std::string> bundleIds,
                                                            const WorkspaceClient& workspace);
  // The cached or newly rendered icon, or null. Valid until the next call.
  const Icon* find(const std::string& bundleId, const WorkspaceClient& workspace);

  ApplicationIconClient icons_;
  std::unordered_map<std::string, CacheEntry> cache_;
};

}  // namespace glintboard
