// SPDX-License-Identifier: MIT
// The deck editor's view model.
#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantList>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "agent/editor/apps_library.h"
#include "agent/editor/deck_library_model.h"
#include "agent/editor/deck_session.h"
#include "agent/editor/deck_tiles_model.h"
#include "agent/editor/editor_icons.h"
#include "agent/editor/shortcuts_library.h"

namespace glintboard {

// What the editor needs of the agent. References outlive every editor.
struct DeckEditorInputs {
  asio::any_io_executor mainThread;
  asio::any_io_executor timers;  // the service loop
  asio::any_io_executor workers;
  DeckStore& deckStore;
  DeckDrafts& deckDrafts;
  WorkspaceClient workspace;
  InstalledAppsCatalog appsCatalog;
  ShortcutsCatalog shortcutsCatalog;
  ShortcutIconProvider& shortcutIconProvider;
  // Whether a phone is connected now. Called on the main thread.
  std::function<bool()> isPhoneConnected;
  // Run after every change of the stored deck; throws when the phone could not be notified.
  std::function<Awaitable<>()> onSaved;
  // Shared by all editors made of these inputs.
  std::shared_ptr<DeckHistories> histories = std::make_shared<DeckHistories>();
  // Runs a key's action on this computer. Returns the reason of a failure, in English.
  std::function<Awaitable<std::optional<std::string>>(DeckTile)> tryKey;
};

enum class LibraryTab { apps, actions, shortcuts };
template <>
struct EnumText<LibraryTab> {
  static constexpr EnumTable<3, LibraryTab> table{{
      {LibraryTab::apps, "apps"},
      {LibraryTab::actions, "actions"},
      {LibraryTab::shortcuts, "shortcuts"},
  }};
};

// The state of one editor window: the libraries, the rules of adding keys, and the session, which
// finishes a save after the window is closed. Messages are null when absent.
//
// Lives on the main thread; its coroutines run there.
class DeckEditorModel : public QObject, public std::enable_shared_from_this<DeckEditorModel> {
  Q_OBJECT
  Q_PROPERTY(QString selectedCategory READ selectedCategory WRITE setSelectedCategory NOTIFY
                 selectedCategoryChanged)
  Q_PROPERTY(QVariantList categories READ categories CONSTANT)
  Q_PROPERTY(QString libraryTab READ libraryTab WRITE setLibraryTab NOTIFY libraryTabChanged)
  Q_PROPERTY(QVariantList libraryTabs READ libraryTabs CONSTANT)
  Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
  Q_PROPERTY(glintboard::DeckLibraryModel* cards READ cards NOTIFY libraryTabChanged)
  Q_PROPERTY(glintboard::AppsLibrary* apps READ apps CONSTANT)
  Q_PROPERTY(glintboard::DeckLibraryModel* actionCards READ actionCards CONSTANT)
  Q_PROPERTY(glintboard::ShortcutsLibrary* shortcuts READ shortcuts CONSTANT)
  Q_PROPERTY(QString suggestedWarnings READ suggestedWarnings NOTIFY suggestedWarningsChanged)

  Q_PROPERTY(QString deckName READ deckName WRITE setDeckName NOTIFY deckChanged)
  Q_PROPERTY(glintboard::DeckTilesModel* tiles READ tilesModel CONSTANT)
  Q_PROPERTY(int slotCount READ slotCount CONSTANT)
  Q_PROPERTY(bool isFull READ isFull NOTIFY deckChanged)
  Q_PROPERTY(bool canUndo READ canUndo NOTIFY historyChanged)
  Q_PROPERTY(bool canRedo READ canRedo NOTIFY historyChanged)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY busyChanged)
  Q_PROPERTY(bool isSaving READ isSaving NOTIFY busyChanged)
  Q_PROPERTY(bool isResetting READ isResetting NOTIFY busyChanged)
  Q_PROPERTY(bool hasUnsavedChanges READ hasUnsavedChanges NOTIFY deckChanged)
  Q_PROPERTY(QString syncLabel READ syncLabel NOTIFY deckChanged)
  Q_PROPERTY(bool syncIsLive READ syncIsLive NOTIFY liveChanged)
  Q_PROPERTY(bool isPhoneConnected READ isPhoneConnected NOTIFY liveChanged)

  Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY messagesChanged)
  Q_PROPERTY(QString infoMessage READ infoMessage NOTIFY messagesChanged)
  Q_PROPERTY(QString offerText READ offerText NOTIFY offerChanged)
  Q_PROPERTY(bool isOfferOutdated READ isOfferOutdated NOTIFY offerChanged)
  Q_PROPERTY(bool showFirstShortcutTip READ showFirstShortcutTip NOTIFY tipChanged)
  Q_PROPERTY(int dropTargetIndex READ dropTargetIndex WRITE setDropTargetIndex NOTIFY dragChanged)
  Q_PROPERTY(bool isDeckDragActive READ isDeckDragActive NOTIFY dragChanged)

 public:
  using Tiles = std::vector<DeckTile>;

  // Shows the first category and the applications; loads nothing yet.
  static std::shared_ptr<DeckEditorModel> create(DeckEditorInputs inputs);
  ~DeckEditorModel() override;

  // The window appears: loads the deck and the libraries, and follows what runs until close().
  void open();
  // The window is gone. Unsaved edits stay a draft, and what is being saved will be saved.
  void close();

  QString selectedCategory() const;
  // Loads that deck; unsaved edits of the other stay its draft. Ignores an unknown category.
  void setSelectedCategory(const QString& category);
  // Each with `id` and `name`, in their order.
  static QVariantList categories();
  QString libraryTab() const;
  void setLibraryTab(const QString& tab);
  // Each with `id`, `title` and `searchPlaceholder`.
  static QVariantList libraryTabs();
  QString searchText() const { return searchText_; }
  // Of all three libraries.
  void setSearchText(const QString& text);
  // Those of the tab shown.
  DeckLibraryModel* cards();
  AppsLibrary* apps() { return apps_.get(); }
  DeckLibraryModel* actionCards() { return &actionCards_; }
  ShortcutsLibrary* shortcuts() { return shortcuts_.get(); }
  // Empty when nothing is missing, and until the applications are known.
  QString suggestedWarnings() const;

  QString deckName() const { return session_->deck().name; }
  void setDeckName(const QString& name) { session_->setName(name); }
  const Tiles& tiles() const { return session_->deck().tiles; }
  const Tiles& savedTiles() const { return session_->saved().tiles; }
  QString savedDeckName() const { return session_->saved().name; }
  std::set<std::string> missingShortcutIDs() const;
  DeckTilesModel* tilesModel() { return &tilesModel_; }
  static int slotCount() { return static_cast<int>(deckCapacity); }
  bool isFull() const { return tiles().size() >= deckCapacity; }
  bool canUndo() const { return session_->canGo(EditHistory::Direction::undo); }
  bool canRedo() const { return session_->canGo(EditHistory::Direction::redo); }
  bool isLoading() const { return session_->isLoading(); }
  bool isSaving() const { return session_->isSaving(); }
  bool isResetting() const { return session_->isResetting(); }
  bool hasUnsavedChanges() const { return session_->hasUnsavedChanges(); }
  QString syncLabel() const;
  bool syncIsLive() const { return session_->isLive(); }
  bool isPhoneConnected() const { return session_->isPhoneConnected(); }

  QString errorMessage() const { return session_->errorMessage(); }
  QString infoMessage() const { return session_->infoMessage(); }
  // From when the unsaved changes are that can be restored. Empty when there are none.
  QString offerText() const;
  bool isOfferOutdated() const { return session_->isOfferOutdated(); }
  bool showFirstShortcutTip() const { return showFirstShortcutTip_; }
  // -1 when no slot is under a drag.
  int dropTargetIndex() const { return dropTargetIndex_; }
  void setDropTargetIndex(int index);
  bool isDeckDragActive() const { return dropTargetIndex_ >= 0; }

  // The icons behind the sources that the models give, for the QML engine's provider.
  std::shared_ptr<const EditorIcons> icons() const { return icons_; }

  // A card's add button; the identifier is the card's payload. A full deck takes nothing; a key
  // that is there already is refused with a message.
  Q_INVOKABLE void addApp(const QString& bundleId);
  Q_INVOKABLE void addAction(const QString& actionId);
  Q_INVOKABLE void addShortcut(const QString& identifier);
  // The one of these that the tab shown adds.
  Q_INVOKABLE void add(const QString& payload);
  // Inserts the first item (a payload, or a launcher file as path or URL) at an index from 0, or
  // moves the key that does the same there. Returns whether it was accepted.
  Q_INVOKABLE bool drop(const QStringList& items, int index);
  // drop() of launcher files that another program dragged.
  Q_INVOKABLE bool dropDesktopFile(const QList<QUrl>& urls, int index);
  // Moves a key as a drop at `to` does. False when there is no key at `from`.
  Q_INVOKABLE bool move(int from, int to);
  Q_INVOKABLE void remove(int index);
  // Runs the key's action. The key is shown as launching until that ends, and for a moment as
  // successful; a failure becomes the error message. Ignored while the key is being tried.
  Q_INVOKABLE void tryKey(int index);
  Q_INVOKABLE void undo() { session_->go(EditHistory::Direction::undo); }
  Q_INVOKABLE void redo() { session_->go(EditHistory::Direction::redo); }

  Q_INVOKABLE void save() { session_->save(); }
  Q_INVOKABLE void reset() { session_->reset(); }
  Q_INVOKABLE void restoreOffer() { session_->restoreOffer(); }
  Q_INVOKABLE void dismissOffer() { session_->dismissOffer(); }
  Q_INVOKABLE void cancel() { Q_EMIT closeRequested(); }
  Q_INVOKABLE void dismissFirstShortcutTip();

 public Q_SLOTS:
  // Asks again whether a phone is connected and what runs. Done every second by itself; to be
  // called when a phone comes or goes.
  void refreshLive();

 Q_SIGNALS:
  void selectedCategoryChanged();
  void libraryTabChanged();
  void searchTextChanged();
  void suggestedWarningsChanged();
  void deckChanged();
  void historyChanged();
  void busyChanged();
  void liveChanged();
  void messagesChanged();
  void offerChanged();
  void tipChanged();
  void dragChanged();
  // Cancelled, or saved to a connected phone.
  void closeRequested();

 private:
  explicit DeckEditorModel(DeckEditorInputs inputs);
  void followSession();
  void followLibraries();

  // Edits.
  void addTile(const DeckTile& tile);
  bool dropItem(const QString& item, int index);
  bool dropTile(const DeckTile& tile, int index);
  // What a key of that identifier would be; none when there is no such thing.
  std::optional<DeckTile> appTile(const std::string& bundleId) const;
  std::optional<DeckTile> shortcutTile(const std::string& identifier) const;

  // To be called after every change of what the keys stand for.
  void showKeys();
  DeckKey keyOf(const DeckTile& tile, const std::set<std::string>& missing) const;
  void setError(const QString& error) { session_->setMessages(error, infoMessage()); }
  void setInfo(const QString& info) { session_->setMessages(errorMessage(), info); }

  static Awaitable<> runTrial(std::shared_ptr<DeckEditorModel> self, DeckTile tile);

  static Awaitable<> followLive(std::weak_ptr<DeckEditorModel> weak, asio::any_io_executor timers);

  DeckEditorInputs inputs_;
  std::shared_ptr<DeckSession> session_;
  std::shared_ptr<EditorIcons> icons_;
  std::shared_ptr<AppsLibrary> apps_;
  DeckLibraryModel actionCards_;
  std::shared_ptr<ShortcutsLibrary> shortcuts_;
  DeckTilesModel tilesModel_;

  bool isOpen_ = false;
  LibraryTab libraryTab_ = LibraryTab::apps;
  QString searchText_;
  // The keys that are being tried, or just were.
  std::map<DeckKeyIdentity, KeyTrial> trials_;
  bool showFirstShortcutTip_ = false;
  int dropTargetIndex_ = -1;
};

}  // namespace glintboard
