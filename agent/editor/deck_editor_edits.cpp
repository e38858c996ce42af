// What the user does to the deck.
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

// The launcher file that a dropped text names, or an empty path. Lists of URLs count by their
// first line; the menus of some desktops name the entry alone.
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

void DeckEditorModel::setDeckName(const QString& name) {
  if (name == deck_.name) {
    return;
  }
  if (isEditable()) {
    history_.record(deck_, true);
    deck_.name = name;
  }
  // Also when it is refused, so that a field takes back what was typed.
  Q_EMIT deckChanged();
}

void DeckEditorModel::edit(Tiles tiles) {
  if (tiles == deck_.tiles) {
    return;
  }
  history_.record(deck_, false);
  deck_.tiles = std::move(tiles);
  showDeck();
}

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
  if (!isEditable() || isFull()) {
    return;
  }
  if (DeckEdits::placeOf(deck_.tiles, tile)) {
    setMessages(duplicateText(tile), infoMessage_);
    return;
  }
  dropTile(tile, static_cast<int>(deck_.tiles.size()));
  if (tile.kind != DeckTileKind::app) {
    setMessages(errorMessage_, QString());
  }
}

bool DeckEditorModel::drop(const QStringList& items, int index) {
  const bool accepted = !items.isEmpty() && isEditable() && dropItem(items.front(), index);
  setDropTargetIndex(-1);
  return accepted;
}

bool DeckEditorModel::dropDesktopFile(const QList<QUrl>& urls, int index) {
  QStringList items;
  for (const auto& url : urls) {
    items.append(url.toString(QUrl::FullyEncoded));
  }
  const bool accepted = drop(items, index);
  if (!accepted && isEditable() && !isFull()) {
    setMessages(tr("Only installed applications can be dropped here."), infoMessage_);
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
  // A key may stay on the deck when what it stands for is gone; it can still be moved.
  const auto onDeck = [&](DeckTileKind kind) {
    return std::ranges::find_if(deck_.tiles, [&](const DeckTile& tile) {
      return tile.kind == kind && tile.derivedId() == id;
    });
  };
  for (const auto kind : {DeckTileKind::shortcut, DeckTileKind::app, DeckTileKind::action}) {
    if (const auto tile = onDeck(kind); tile != deck_.tiles.end()) {
      return dropTile(DeckTile(*tile), index);
    }
  }
  const auto app = appTile(id);
  return app && dropTile(*app, index);
}

bool DeckEditorModel::dropTile(const DeckTile& tile, int index) {
  const auto place = static_cast<std::size_t>(std::max(index, 0));
  if (const auto from = DeckEdits::placeOf(deck_.tiles, tile)) {
    edit(DeckEdits::moved(deck_.tiles, *from, place));
    return true;
  }
  if (isFull()) {
    return false;
  }
  if (tile.kind == DeckTileKind::shortcut && !DeckEdits::holdsShortcut(deck_.tiles)) {
    showFirstShortcutTip_ = true;
    Q_EMIT tipChanged();
  }
  edit(DeckEdits::inserted(deck_.tiles, tile, place));
  setMessages(QString(), infoMessage_);
  return true;
}

bool DeckEditorModel::move(int from, int to) {
  if (!isEditable() || from < 0 || static_cast<std::size_t>(from) >= deck_.tiles.size()) {
    return false;
  }
  edit(DeckEdits::moved(deck_.tiles, static_cast<std::size_t>(from),
                        static_cast<std::size_t>(std::max(to, 0))));
  return true;
}

void DeckEditorModel::remove(int index) {
  if (isEditable() && index >= 0 && static_cast<std::size_t>(index) < deck_.tiles.size()) {
    edit(DeckEdits::removed(deck_.tiles, static_cast<std::size_t>(index)));
  }
}

void DeckEditorModel::undo() {
  if (isEditable()) {
    restore(history_.undo(deck_));
  }
}

void DeckEditorModel::redo() {
  if (isEditable()) {
    restore(history_.redo(deck_));
  }
}

void DeckEditorModel::restore(std::optional<DeckState> state) {
  if (!state) {
    return;
  }
  deck_ = std::move(*state);
  refreshShortcutLabels();
  // The message was about what has been undone.
  setMessages(QString(), infoMessage_);
  showDeck();
}

}  // namespace glintboard
