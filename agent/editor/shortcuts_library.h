// SPDX-License-Identifier: MIT
// The user's Shortcuts in the editor.
#pragma once

#include <QColor>
#include <QImage>
#include <QObject>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "agent/editor/deck_library_model.h"
#include "agent/editor/editor_icons.h"
#include "agent_core/icons/shortcut_icon_provider.h"
#include "agent_core/shortcuts/shortcuts_catalog.h"
#include "platform/workspace_client.h"
#include "protocol/enum_text.h"

namespace glintboard {

// The state of the listing. `loadMessage` has the reason of a failure.
enum class ShortcutsLoadState { loading, loaded, empty, failed };
template <>
struct EnumText<ShortcutsLoadState> {
  static constexpr EnumTable<4, ShortcutsLoadState> table{{
      {ShortcutsLoadState::loading, "loading"},
      {ShortcutsLoadState::loaded, "loaded"},
      {ShortcutsLoadState::empty, "empty"},
      {ShortcutsLoadState::failed, "failed"},
  }};
};

// Lists the Shortcuts and their icons. Main thread; a load under way shares ownership.
class ShortcutsLibrary : public QObject, public std::enable_shared_from_this<ShortcutsLibrary> {
  Q_OBJECT
  Q_PROPERTY(glintboard::DeckLibraryModel* cards READ cards CONSTANT)
  Q_PROPERTY(QString loadState READ loadStateText NOTIFY changed)
  Q_PROPERTY(QString loadMessage READ loadMessage NOTIFY changed)
  Q_PROPERTY(bool showsSuggested READ showsSuggested NOTIFY changed)
  Q_PROPERTY(QString suggestedTitle READ suggestedTitle CONSTANT)
  Q_PROPERTY(QString suggestedText READ suggestedText CONSTANT)
  Q_PROPERTY(QString suggestedSymbolName READ suggestedSymbolName CONSTANT)

 public:
  // The dependencies. The icon provider must outlive every load.
  struct Parts {
    asio::any_io_executor mainThread;
    asio::any_io_executor workers;
    ShortcutsCatalog catalog;
    ShortcutIconProvider& iconProvider;
    WorkspaceClient workspace;
  };
  struct Icon {
    QImage image;
    QColor accent;
    QString source = {};
  };

  ShortcutsLibrary(Parts parts, std::shared_ptr<EditorIcons> icons);

  DeckLibraryModel* cards() { return &cards_; }
  ShortcutsLoadState loadState() const { return loadState_; }
  QString loadStateText() const;
  QString loadMessage() const { return loadMessage_; }
  const std::vector<CatalogShortcut>& catalogShortcuts() const { return shortcuts_; }
  // Whether `catalogShortcuts` is complete: the last listing has succeeded.
  bool isKnown() const { return isKnown_; }
  // Null when there is none. Valid until changed().
  const CatalogShortcut* shortcut(const std::string& identifier) const;
  // Null without an icon. Ignores case. Valid until changed().
  const Icon* icon(const std::string& identifier) const;

  // True until the suggested Shortcut exists.
  bool showsSuggested() const;
  QString suggestedTitle() const;
  QString suggestedText() const;
  QString suggestedSymbolName() const;

  // Lists the Shortcuts, also for Refresh and Retry. Does nothing while a listing is under way.
  Q_INVOKABLE void load();
  // Opens the application in which the user creates Shortcuts.
  Q_INVOKABLE void open();

 Q_SIGNALS:
  void changed();
  // A listing has succeeded; `anyIcon` is whether any of its Shortcuts has an icon.
  void loaded(bool anyIcon);
  void failedToOpen(const QString& message);

 private:
  using Icons = std::unordered_map<std::string, Icon>;
  using Self = std::shared_ptr<ShortcutsLibrary>;

  static Awaitable<> runLoad(Self self);
  static Awaitable<> loadInto(Self self);
  static Awaitable<> runOpen(Self self);
  void show(std::vector<CatalogShortcut> shortcuts, Icons icons);
  void replaceIcons(Icons icons);

  Parts parts_;
  std::shared_ptr<EditorIcons> editorIcons_;
  bool isListing_ = false;
  bool isKnown_ = false;
  ShortcutsLoadState loadState_ = ShortcutsLoadState::loading;
  QString loadMessage_;
  std::vector<CatalogShortcut> shortcuts_;
  Icons icons_;  // by identifier in lower case
  DeckLibraryModel cards_;
};

}  // namespace glintboard
