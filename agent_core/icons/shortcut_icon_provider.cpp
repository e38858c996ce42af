#include "agent_core/icons/shortcut_icon_provider.h"

#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/png.h"
#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "protocol/text.h"

namespace glintboard {

Awaitable<std::optional<Icon>> ShortcutIconProvider::pngAndRevision(std::string identifier) {
  return enter(doPngAndRevision(std::move(identifier)));
}

Awaitable<std::optional<std::string>> ShortcutIconProvider::revision(std::string identifier) {
  auto icon = co_await pngAndRevision(std::move(identifier));
  co_return icon ? std::optional(std::move(icon->revision)) : std::nullopt;
}

Awaitable<std::optional<std::string>> ShortcutIconProvider::cachedPNG(std::string identifier) {
  return enter(doCachedPNG(std::move(identifier)));
}

Awaitable<std::map<std::string, std::string>> ShortcutIconProvider::preloadAll() {
  return enter(doPreloadAll());
}

std::string ShortcutIconProvider::normalizedKey(std::string_view identifier) {
  return lowercased(identifier);
}

std::optional<std::string> ShortcutIconProvider::pngData(const QImage& image, int side) {
  if (image.isNull()) {
    return std::nullopt;
  }
  return glintboard::pngData(
      image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

Awaitable<std::optional<Icon>> ShortcutIconProvider::doPngAndRevision(std::string identifier) {
  const std::string key = normalizedKey(identifier);
  if (const auto cached = cache_.find(key); cached != cache_.end()) {
    co_return cached->second;
  }
  auto png = pngData(icons_.icon(identifier, iconSide), iconSide);
  if (!png) {
    co_return std::nullopt;
  }
  Icon icon{AppIconProvider::revision(*png), std::move(*png)};
  cache_[key] = icon;
  co_return icon;
}

Awaitable<std::optional<std::string>> ShortcutIconProvider::doCachedPNG(std::string identifier) {
  const auto cached = cache_.find(normalizedKey(identifier));
  co_return cached == cache_.end() ? std::nullopt : std::optional(cached->second.data);
}

Awaitable<std::map<std::string, std::string>> ShortcutIconProvider::doPreloadAll() {
  std::map<std::string, std::string> loaded;
  for (const auto& [identifier, image] : icons_.icons(iconSide)) {
    if (!ShortcutsCatalog::isShortcutIdentifier(identifier)) {
      continue;
    }
    if (auto png = pngData(image, iconSide)) {
      const std::string key = normalizedKey(identifier);
      cache_[key] = {AppIconProvider::revision(*png), *png};
      loaded[key] = std::move(*png);
    }
  }
  co_return loaded;
}

}  // namespace glintboard
