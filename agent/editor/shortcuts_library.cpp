// SPDX-License-Identifier: MIT
#include "agent/editor/shortcuts_library.h"

#include <algorithm>

#include "agent/editor/installed_apps_catalog.h"
#include "agent/language/error_text.h"
#include "platform/run_on.h"
#include "platform/shortcuts_bundle_id.h"
#include "platform/spawn.h"
#include "protocol/deck_tile.h"

namespace glintboard {
namespace {

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString iconKey(const std::string& key) {
  return QStringLiteral("shortcut:") + text(key);
}

}  // namespace

ShortcutsLibrary::ShortcutsLibrary(Parts parts, std::shared_ptr<EditorIcons> icons)
    : parts_(std::move(parts)), editorIcons_(std::move(icons)) {}

QString ShortcutsLibrary::loadStateText() const {
  return text(rawValue(loadState_));
}

const CatalogShortcut* ShortcutsLibrary::shortcut(const std::string& identifier) const {
  const auto found = std::ranges::find(shortcuts_, identifier, &CatalogShortcut::identifier);
  return found == shortcuts_.end() ? nullptr : &*found;
}

const ShortcutsLibrary::Icon* ShortcutsLibrary::icon(const std::string& identifier) const {
  const auto found = icons_.find(ShortcutIconProvider::normalizedKey(identifier));
  return found == icons_.end() ? nullptr : &found->second;
}

bool ShortcutsLibrary::showsSuggested() const {
  return isKnown_ && !ShortcutsCatalog::findHero(shortcuts_);
}

QString ShortcutsLibrary::suggestedTitle() const {
  return tr(ShortcutsCatalog::heroRecipeDisplayName);
}

QString ShortcutsLibrary::suggestedText() const {
  return tr("Create \u201c%1\u201d in Shortcuts (open Cursor, then start Wispr Flow). "
            "No Ask for Input steps.")
      .arg(text(ShortcutsCatalog::heroRecipePreferredName));
}

QString ShortcutsLibrary::suggestedSymbolName() const {
  return text(ShortcutsCatalog::heroRecipeSymbolName);
}

void ShortcutsLibrary::load() {
  if (isListing_) {
    return;
  }
  isListing_ = true;
  loadState_ = ShortcutsLoadState::loading;
  loadMessage_ = QString();
  Q_EMIT changed();
  spawn(parts_.mainThread, runLoad(shared_from_this()), "Shortcuts");
}

Awaitable<> ShortcutsLibrary::runLoad(Self self) {
  try {
    co_await loadInto(self);
  } catch (const std::exception& error) {
    self->isKnown_ = false;
    self->loadState_ = ShortcutsLoadState::failed;
    self->loadMessage_ = errorText(error);
    self->show({}, {});
  }
  self->isListing_ = false;
}

Awaitable<> ShortcutsLibrary::loadInto(Self self) {
  auto shortcuts = co_await self->parts_.catalog.list();
  const auto pngs = co_await self->parts_.iconProvider.preloadAll();
  auto decoding = runOn(self->parts_.workers, [pngs] {
    Icons icons;
    for (const auto& [key, png] : pngs) {
      const auto image = QImage::fromData(reinterpret_cast<const uchar*>(png.data()),
                                          static_cast<int>(png.size()));
      if (!image.isNull()) {
        icons[ShortcutIconProvider::normalizedKey(key)] = {
            image, InstalledAppsCatalog::accentColor(image).value_or(fallbackAccent())};
      }
    }
    return icons;
  });
  auto icons = co_await std::move(decoding);
  self->isKnown_ = true;
  self->loadState_ = shortcuts.empty() ? ShortcutsLoadState::empty : ShortcutsLoadState::loaded;
  self->show(std::move(shortcuts), std::move(icons));
  Q_EMIT self->loaded(!self->icons_.empty());
}

void ShortcutsLibrary::show(std::vector<CatalogShortcut> shortcuts, Icons icons) {
  shortcuts_ = std::move(shortcuts);
  replaceIcons(std::move(icons));
  const auto hero = ShortcutsCatalog::findHero(shortcuts_);
  std::vector<LibraryEntry> entries;
  for (const auto& shortcut : shortcuts_) {
    LibraryEntry entry{.payload = text(shortcut.identifier),
                       .label = text(shortcut.name),
                       .symbolName = text(DeckTile::shortcutSymbolName)};
    if (hero == shortcut) {
      entry.subtitle = suggestedTitle();
      entry.symbolName = suggestedSymbolName();
    }
    if (const auto* shown = icon(shortcut.identifier)) {
      entry.iconSource = shown->source;
      entry.accent = shown->accent;
    }
    entries.push_back(std::move(entry));
  }
  cards_.setEntries(std::move(entries));
  Q_EMIT changed();
}

void ShortcutsLibrary::replaceIcons(Icons icons) {
  for (const auto& [key, icon] : icons_) {
    if (!icons.contains(key)) {
      editorIcons_->remove(iconKey(key));
    }
  }
  for (auto& [key, icon] : icons) {
    const auto before = icons_.find(key);
    icon.source = before != icons_.end() && before->second.image == icon.image
                      ? before->second.source
                      : editorIcons_->set(iconKey(key), icon.image);
  }
  icons_ = std::move(icons);
}

void ShortcutsLibrary::open() {
  spawn(parts_.mainThread, runOpen(shared_from_this()), "opening Shortcuts");
}

Awaitable<> ShortcutsLibrary::runOpen(Self self) {
  try {
    const auto location = self->parts_.workspace.urlForApplication(shortcutsBundleId);
    if (location) {
      auto opening = self->parts_.workspace.openApplication(*location);
      co_await std::move(opening);
    }
  } catch (const std::exception& error) {
    Q_EMIT self->failedToOpen(errorText(error));
  }
}

}  // namespace glintboard
