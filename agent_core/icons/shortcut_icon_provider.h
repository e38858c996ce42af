// SPDX-License-Identifier: MIT
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

// The icons of the user's Shortcuts, cached under their identifiers in any letter case. An entry
// is kept until preloadAll() finds another icon, and rendered anew only then. An actor of the
// workers.
class ShortcutIconProvider : public Actor {
 public:
  ShortcutIconProvider(asio::any_io_executor executor, ShortcutIconClient icons)
      : Actor(std::move(executor)), icons_(std::move(icons)) {}

  // The icon of a Shortcut, or none; an icon that is missing is looked for again next time.
  Awaitable<std::optional<Icon>> pngAndRevision(std::string identifier);
  Awaitable<std::optional<std::string>> revision(std::string identifier);
  // Those that there are of several, by identifier.
  Awaitable<std::map<std::string, Icon>> icons(std::vector<std::string> identifiers);
  // The revisions of those Shortcuts that have an icon, by identifier, after preloadAll().
  Awaitable<std::map<std::string, std::string>> revisions(std::vector<std::string> identifiers);
  // The cached PNG or none; never looks for one.
  Awaitable<std::optional<std::string>> cachedPNG(std::string identifier);
  // The PNGs of all Shortcuts that have an icon, by normalised identifier. Fills the cache.
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

  Awaitable<std::optional<Icon>> doPngAndRevision(std::string identifier);
  Awaitable<std::map<std::string, Icon>> doIcons(std::vector<std::string> identifiers);
  Awaitable<std::map<std::string, std::string>> doRevisions(std::vector<std::string> identifiers);
  Awaitable<std::optional<std::string>> doCachedPNG(std::string identifier);
  Awaitable<std::map<std::string, std::string>> doPreloadAll();
  // In the cache, or rendered into it; null when there is none.
  const Icon* find(const std::string& identifier);
  // Renders what has changed; returns the keys of all that have an icon.
  std::vector<std::string> preload();
  static std::optional<Icon> render(const ShortcutIconClient::Icon& icon);

  ShortcutIconClient icons_;
  std::unordered_map<std::string, CacheEntry> cache_;
};

}  // namespace glintboard
