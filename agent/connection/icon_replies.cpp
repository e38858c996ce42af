// SPDX-License-Identifier: MIT
#include "agent/connection/icon_replies.h"

#include <algorithm>
#include <map>

#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "protocol/base64.h"
#include "protocol/message_factory.h"

namespace glintboard {
namespace {

// Icons are read in batches, so that requests of other connections run between two of them.
constexpr std::size_t batchSize = 8;
// A deck has 24 keys.
constexpr std::size_t maxIconKeys = 256;

// The icons that exist, by key.
Awaitable<std::map<std::string, Icon>> iconsOf(std::vector<std::string> keys,
                                               AppIconProvider& applications,
                                               ShortcutIconProvider& shortcuts,
                                               const WorkspaceClient& workspace) {
  const auto firstShortcut = std::ranges::partition(keys, [](const std::string& key) {
                               return !ShortcutsCatalog::isShortcutIdentifier(key);
                             }).begin();
  std::vector<std::string> identifiers(firstShortcut, keys.end());
  keys.erase(firstShortcut, keys.end());
  std::map<std::string, Icon> found;
  if (!keys.empty()) {
    found = co_await applications.icons(std::move(keys), workspace);
  }
  if (!identifiers.empty()) {
    found.merge(co_await shortcuts.icons(std::move(identifiers)));
  }
  co_return found;
}

}  // namespace

Awaitable<Replies> iconReplies(std::vector<std::string> keys, AppIconProvider& applications,
                               ShortcutIconProvider& shortcuts, const WorkspaceClient& workspace) {
  Replies replies;
  keys.resize(std::min(keys.size(), maxIconKeys));
  for (std::size_t first = 0; first < keys.size(); first += batchSize) {
    const std::vector batch(
        keys.begin() + std::ptrdiff_t(first),
        keys.begin() + std::ptrdiff_t(std::min(first + batchSize, keys.size())));
    const auto found = co_await iconsOf(batch, applications, shortcuts, workspace);
    for (const auto& key : batch) {
      if (const auto icon = found.find(key); icon != found.end()) {
        replies.push_back(WireCodec::encodeString(MessageFactory::appIcon(
            key, icon->second.revision, base64Encode(icon->second.data), randomUuid())));
      }
    }
  }
  co_return replies;
}

}  // namespace glintboard
