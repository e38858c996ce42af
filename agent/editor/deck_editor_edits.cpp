// SPDX-License-Identifier: MIT
// The edits of a deck.
#include <algorithm>

#include "agent/decks/deck_store_error.h"
#include "agent/editor/deck_editor_model.h"
#include "agent/editor/deck_edits.h"
#include "agent/language/error_text.h"

namespace glintboard {
namespace {

QString duplicateText(const DeckTile& tile) {
  using Code = DeckStoreError::Code;
  const auto code = tile.kind == DeckTileKind::app      ? Code::duplicateBundleId
                    : tile.kind == DeckTileKind::action ? Code::duplicateAction
                                                        : Code::duplicateShortcut;
  return errorText(DeckStoreError(code, tile.derivedId()));
}

std::optional<DeckTile> actionTile(const std::string& actionId) {
  const auto action = fromRawValue<BuiltinAction>(actionId);
  return action ? std::optional(DeckTile::action(0, *action)) : std::nullopt;
}

// The launcher file that a dropped text names, or an empty path. Of a list of URLs the first one is
// used. The menus of some desktops name only the desktop entry.
std::filesystem::path launcherPath(const QString& item) {
  const QString line = item.section(QLatin1Char('\n'), 0, 0).trimmed();
  if (line.startsWith(QLatin1Char('/'))) {
    return line.toStdString();
  }
  const QUrl url(line);
  if (url.isLocalFile()) {
    return url.toLocalFile().toStdString();
  }
  if (url.scheme() == QLatin1String("applications") ||
      url.scheme() == QLatin1String("application")) {
    return line.section(QLatin1Char(':'), 1).remove(QLatin1Char('/')).toStdString();
  }
  return {};
}

}  // namespace

std::optional<DeckTile> DeckEditorModel::appTile(const std::string& bundleId) const {
  const auto* app = apps_->app(bundleId);
  return app == nullptr ? std::nullopt
                        : std::optional(DeckTile::app(0, app->label, app->bundleId, app->iconName));
}

std::optional<DeckTile> DeckEditorModel::shortcutTile(const std::string& identifier) const {
  const auto* shortcut = shortcuts_->shortcut(identifier);
  return shortcut == nullptr
             ? std::nullopt
             : std::optional(DeckTile::shortcut(0, shortcut->name, shortcut->identifier,
                                                std::string(DeckTile::shortcutSymbolName)));
}

void DeckEditorModel::addApp(const QString& bundleId) {
  if (const auto tile = appTile(bundleId.toStdString())) {
    addTile(*tile);
  }
}

void DeckEditorModel::addAction(const QString& actionId) {
  if (const auto tile = actionTile(actionId.toStdString())) {
    addTile(*tile);
  }
}

void DeckEditorModel::addShortcut(const QString& identifier) {
  if (const auto tile = shortcutTile(identifier.toStdString())) {
    addTile(*tile);
  }
}

void DeckEditorModel::add(const QString& payload) {
  switch (libraryTab_) {
    case LibraryTab::apps:
      return addApp(payload);
    case LibraryTab::actions:
      return addAction(payload);
    case LibraryTab::shortcuts:
      return addShortcut(payload);
  }
}

void DeckEditorModel::addTile(const DeckTile& tile) {
  if (!session_->isEditable() || isFull()) {
    return;
  }
  if (DeckEdits::indexOf(tiles(), tile)) {
    setError(duplicateText(tile));
    return;
  }
  dropTile(tile, static_cast<int>(tiles().size()));
  if (tile.kind != DeckTileKind::app) {
    setInfo(QString());
  }
}

bool DeckEditorModel::drop(const QStringList& items, int index) {
  const bool accepted =
      !items.isEmpty() && session_->isEditable() && dropItem(items.front(), index);
  setDropTargetIndex(-1);
  return accepted;
}

bool DeckEditorModel::dropDesktopFile(const QList<QUrl>& urls, int index) {
  QStringList items;
  for (const auto& url : urls) {
    items.append(url.toString(QUrl::FullyEncoded));
  }
  const bool accepted = drop(items, index);
  if (!accepted && session_->isEditable() && !isFull()) {
    setError(tr("Only installed applications can be dropped here."));
  }
  return accepted;
}

bool DeckEditorModel::dropItem(const QString& item, int index) {
  const std::string id = apps_->bundleIdOf(launcherPath(item)).value_or(item.toStdString());
  if (const auto action = actionTile(id)) {
    return dropTile(*action, index);
  }
  if (const auto shortcut = shortcutTile(id)) {
    return dropTile(*shortcut, index);
  }
  // A key whose application or Shortcut is gone can still be moved.
  const auto onDeck = [&](DeckTileKind kind) {
    return std::ranges::find_if(
        tiles(), [&](const DeckTile& tile) { return tile.kind == kind && tile.derivedId() == id; });
  };
  for (const auto kind : {DeckTileKind::shortcut, DeckTileKind::app, DeckTileKind::action}) {
    if (const auto tile = onDeck(kind); tile != tiles().end()) {
      return dropTile(DeckTile(*tile), index);
    }
  }
  const auto app = appTile(id);
  return app && dropTile(*app, index);
}

bool DeckEditorModel::dropTile(const DeckTile& tile, int index) {
  const auto position = static_cast<std::size_t>(std::max(index, 0));
  if (const auto from = DeckEdits::indexOf(tiles(), tile)) {
    session_->setTiles(DeckEdits::moved(tiles(), *from, position));
    return true;
  }
  if (isFull()) {
    return false;
  }
  if (tile.kind == DeckTileKind::shortcut && !DeckEdits::holdsShortcut(tiles())) {
    showFirstShortcutTip_ = true;
    Q_EMIT tipChanged();
  }
  session_->setTiles(DeckEdits::inserted(tiles(), tile, position));
  setError(QString());
  return true;
}

bool DeckEditorModel::move(int from, int to) {
  if (!session_->isEditable() || from < 0 || static_cast<std::size_t>(from) >= tiles().size()) {
    return false;
  }
  session_->setTiles(DeckEdits::moved(tiles(), static_cast<std::size_t>(from),
                                      static_cast<std::size_t>(std::max(to, 0))));
  return true;
}

void DeckEditorModel::remove(int index) {
  if (session_->isEditable() && index >= 0 && static_cast<std::size_t>(index) < tiles().size()) {
    session_->setTiles(DeckEdits::removed(tiles(), static_cast<std::size_t>(index)));
  }
}

}  // namespace glintboard
