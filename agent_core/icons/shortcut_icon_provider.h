// SPDX-License-Identifier: MIT
// Renders and caches the icons of Shortcut keys.
#pragma once

#include <QImage>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "agent_core/icons/icon.h"
#include "platform/actor.h"
#include "platform/shortcut_icon_client.h"

namespace glintboard {

// The icons of the user's Shortcuts, cached by identifier regardless of letter case. An icon is
// rendered again only when preloadAll() or revisions() finds that it has changed. An actor on the
// workers.
class ShortcutIconProvider : public Actor {
 public:
  ShortcutIconProvider(asio::any_io_executor executor, ShortcutIconClient icons)
      : Actor(std::move(executor)), icons_(std::move(icons)) {}

  // The icon of a Shortcut, or none. A missing icon is not cached: the next call looks again.
  Awaitable<std::optional<Icon>> pngAndRevision(std::string identifier);
  // The revision of that icon.
  Awaitable<std::optional<std::string>> revision(std::string identifier);
  // The icons of several Shortcuts by identifier, without those that have none.
  Awaitable<std::map<std::string, Icon>> icons(std::vector<std::string> identifiers);
  // The same for the revisions, after updating the cache as preloadAll() does.
  Awaitable<std::map<std::string, std::string>> revisions(std::vector<std::string> identifiers);
  // The cached PNG, or none; renders nothing.
  Awaitable<std::optional<std::string>> cachedPNG(std::string identifier);
  // The PNGs of all Shortcuts that have an icon, by normalised identifier. Updates the cache.
  Awaitable<std::map<std::string, std::string>> preloadAll();

  // The key of the cache: the identifier in lower case.
  static std::string normalizedKey(std::string_view identifier);
  // The image scaled into a square of `side` pixels, as PNG, or none.
  static std::optional<std::string> pngData(const QImage& image, int side);

 private:
  struct CacheEntry {
    Icon icon;
    std::string stamp;
  };

  // The cached or newly rendered icon, or null. Valid until the next call.
  const Icon* find(const std::string& identifier);
  // Renders the icons that have changed. Returns the keys of all Shortcuts that have an icon.
  std::vector<std::string> preload();
  static std::optional<Icon> render(const ShortcutIconClient::Icon& icon);

  ShortcutIconClient icons_;
  std::unordered_map<std::string, CacheEntry> cache_;
};

}  // namespace glintboard
