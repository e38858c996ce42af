// SPDX-License-Identifier: MIT
#include "agent_core/icons/shortcut_icon_provider.h"

#include "agent_core/icons/app_icon_provider.h"
#include "agent_core/icons/png.h"
#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "protocol/text.h"

namespace glintboard {

Awaitable<std::optional<Icon>> ShortcutIconProvider::pngAndRevision(std::string identifier) {
  return enter([this, identifier = std::move(identifier)] {
    const Icon* icon = find(identifier);
    return icon != nullptr ? std::optional(*icon) : std::nullopt;
  });
}

Awaitable<std::optional<std::string>> ShortcutIconProvider::revision(std::string identifier) {
  auto icon = co_await pngAndRevision(std::move(identifier));
  co_return icon ? std::optional(std::move(icon->revision)) : std::nullopt;
}

Awaitable<std::map<std::string, Icon>> ShortcutIconProvider::icons(
    std::vector<std::string> identifiers) {
  return enter([this, identifiers = std::move(identifiers)] {
    std::map<std::string, Icon> found;
    for (const auto& identifier : identifiers) {
      if (const Icon* icon = find(identifier)) {
        found[identifier] = *icon;
      }
    }
    return found;
  });
}

Awaitable<std::map<std::string, std::string>> ShortcutIconProvider::revisions(
    std::vector<std::string> identifiers) {
  return enter([this, identifiers = std::move(identifiers)] {
    preload();
    std::map<std::string, std::string> revisions;
    for (const auto& identifier : identifiers) {
      if (const Icon* icon = find(identifier)) {
        revisions[identifier] = icon->revision;
      }
    }
    return revisions;
  });
}

Awaitable<std::optional<std::string>> ShortcutIconProvider::cachedPNG(std::string identifier) {
  return enter([this, identifier = std::move(identifier)] {
    const auto cached = cache_.find(normalizedKey(identifier));
    return cached == cache_.end() ? std::nullopt : std::optional(cached->second.icon.data);
  });
}

Awaitable<std::map<std::string, std::string>> ShortcutIconProvider::preloadAll() {
  return enter([this] {
    std::map<std::string, std::string> loaded;
    for (const auto& key : preload()) {
      loaded[key] = cache_.at(key).icon.data;
    }
    return loaded;
  });
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

const Icon* ShortcutIconProvider::find(const std::string& identifier) {
  const std::string key = normalizedKey(identifier);
  if (const auto cached = cache_.find(key); cached != cache_.end()) {
    return &cached->second.icon;
  }
  const auto found = icons_.icon(identifier);
  auto icon = found ? render(*found) : std::nullopt;
  if (!icon) {
    return nullptr;
  }
  auto& entry = cache_[key];
  entry = {std::move(*icon), found->stamp};
  return &entry.icon;
}

std::vector<std::string> ShortcutIconProvider::preload() {
  std::vector<std::string> loaded;
  // The actions of one application usually share its icon.
  std::unordered_map<std::string, std::optional<Icon>> rendered;
  for (const auto& found : icons_.icons()) {
    if (!ShortcutsCatalog::isShortcutIdentifier(found.identifier)) {
      continue;
    }
    std::string key = normalizedKey(found.identifier);
    const auto cached = cache_.find(key);
    if (cached == cache_.end() || cached->second.stamp != found.stamp) {
      const auto [image, isNew] = rendered.try_emplace(found.stamp);
      if (isNew) {
        image->second = render(found);
      }
      if (!image->second) {
        continue;
      }
      cache_[key] = {*image->second, found.stamp};
    }
    loaded.push_back(std::move(key));
  }
  return loaded;
}

std::optional<Icon> ShortcutIconProvider::render(const ShortcutIconClient::Icon& icon) {
  auto png = pngData(icon.draw(iconSide), iconSide);
  if (!png) {
    return std::nullopt;
  }
  return Icon{AppIconProvider::revision(*png), std::move(*png)};
}

}  // namespace glintboard
