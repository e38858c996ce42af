// SPDX-License-Identifier: MIT
#include "agent/editor/deck_editor_model.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <array>

#include "agent/editor/deck_edits.h"
#include "platform/spawn.h"
#include "protocol/deck_template_filter.h"

namespace glintboard {
namespace {

constexpr std::array builtinActions = {BuiltinAction::volumeDown, BuiltinAction::volumeUp,
                                       BuiltinAction::volumeMute};

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Translates a name that decks and phones use in English.
QString shownName(std::string_view name) {
  [[maybe_unused]] constexpr std::array known = {
      QT_TRANSLATE_NOOP("Deck", "Streaming"), QT_TRANSLATE_NOOP("Deck", "Gaming"),
      QT_TRANSLATE_NOOP("Deck", "Vol \u2212"), QT_TRANSLATE_NOOP("Deck", "Vol +"),
      QT_TRANSLATE_NOOP("Deck", "Mute")};
  return QCoreApplication::translate("Deck", std::string(name).c_str());
}

}  // namespace

std::shared_ptr<DeckEditorModel> DeckEditorModel::create(DeckEditorInputs inputs) {
  return std::shared_ptr<DeckEditorModel>(new DeckEditorModel(std::move(inputs)));
}

DeckEditorModel::DeckEditorModel(DeckEditorInputs inputs)
    : inputs_(std::move(inputs)),
      session_(std::make_shared<DeckSession>(
          DeckSessionParts{.mainThread = inputs_.mainThread,
                           .deckStore = inputs_.deckStore,
                           .drafts = inputs_.deckDrafts,
                           .histories = inputs_.histories,
                           .workspace = inputs_.workspace,
                           .isPhoneConnected = inputs_.isPhoneConnected,
                           .onSaved = inputs_.onSaved})),
      icons_(std::make_shared<EditorIcons>()),
      apps_(std::make_shared<AppsLibrary>(inputs_.mainThread, inputs_.appsCatalog,
                                          inputs_.workspace, icons_)),
      shortcuts_(std::make_shared<ShortcutsLibrary>(
          ShortcutsLibrary::Parts{.mainThread = inputs_.mainThread,
                                  .workers = inputs_.workers,
                                  .catalog = inputs_.shortcutsCatalog,
                                  .iconProvider = inputs_.shortcutIconProvider,
                                  .workspace = inputs_.workspace},
          icons_)) {
  std::vector<LibraryEntry> actions;
  for (const auto action : builtinActions) {
    actions.push_back({.payload = text(rawValue(action)),
                       .label = shownName(label(action)),
                       .symbolName = text(symbolName(action))});
  }
  actionCards_.setEntries(std::move(actions));

  followSession();
  followLibraries();
}

void DeckEditorModel::followSession() {
  auto* const session = session_.get();
  connect(session, &DeckSession::deckReplaced, this, &DeckEditorModel::dismissFirstShortcutTip);
  connect(session, &DeckSession::deckChanged, this, [this] {
    if (!DeckEdits::holdsShortcut(tiles())) {
      dismissFirstShortcutTip();
    }
    showKeys();
    for (const auto changed : {&DeckEditorModel::deckChanged, &DeckEditorModel::liveChanged,
                               &DeckEditorModel::historyChanged}) {
      Q_EMIT(this->*changed)();
    }
  });
  connect(session, &DeckSession::busyChanged, this, &DeckEditorModel::busyChanged);
  connect(session, &DeckSession::busyChanged, this, &DeckEditorModel::historyChanged);
  connect(session, &DeckSession::liveChanged, this, &DeckEditorModel::liveChanged);
  connect(session, &DeckSession::offerChanged, this, &DeckEditorModel::offerChanged);
  connect(session, &DeckSession::messagesChanged, this, &DeckEditorModel::messagesChanged);
  connect(session, &DeckSession::closeRequested, this, &DeckEditorModel::closeRequested);
}

void DeckEditorModel::followLibraries() {
  connect(apps_.get(), &AppsLibrary::changed, this, &DeckEditorModel::showKeys);
  connect(apps_.get(), &AppsLibrary::changed, this, &DeckEditorModel::suggestedWarningsChanged);
  connect(apps_.get(), &AppsLibrary::iconsChanged, this, &DeckEditorModel::showKeys);
  connect(shortcuts_.get(), &ShortcutsLibrary::changed, this,
          [this] { session_->setCatalog(shortcuts_->catalogShortcuts()); });
  connect(shortcuts_.get(), &ShortcutsLibrary::loaded, this, [this](bool anyIcon) {
    const QString note =
        tr("Shortcut icons need Automation access: System Settings \u2192 Privacy & Security "
           "\u2192 Automation \u2192 Glintboard Agent \u2192 Shortcuts Events.");
    if (!anyIcon && !shortcuts_->catalogShortcuts().empty()) {
      setInfo(note);
    } else if (infoMessage() == note) {
      setInfo(QString());
    }
  });
  connect(shortcuts_.get(), &ShortcutsLibrary::failedToOpen, this, &DeckEditorModel::setError);
}

DeckEditorModel::~DeckEditorModel() = default;

void DeckEditorModel::open() {
  isOpen_ = true;
  session_->load(session_->category());
  apps_->load();
  shortcuts_->load();
  spawn(inputs_.mainThread, followLive(weak_from_this(), inputs_.timers), "what runs");
}

void DeckEditorModel::close() {
  isOpen_ = false;
  apps_->stop();
  dismissFirstShortcutTip();
}

Awaitable<> DeckEditorModel::followLive(std::weak_ptr<DeckEditorModel> weak,
                                        asio::any_io_executor timers) {
  for (;;) {
    if (const auto self = weak.lock(); self && self->isOpen_) {
      self->refreshLive();
    } else {
      co_return;
    }
    // Timers run on the service loop.
    auto sleeping = asio::co_spawn(timers, sleepFor(std::chrono::seconds(1)), asio::use_awaitable);
    co_await std::move(sleeping);
  }
}

QString DeckEditorModel::selectedCategory() const {
  return text(rawValue(session_->category()));
}

void DeckEditorModel::setSelectedCategory(const QString& category) {
  const auto chosen = fromRawValue<DeckCategoryID>(category.toStdString());
  if (chosen && *chosen != session_->category()) {
    session_->load(*chosen);
    Q_EMIT selectedCategoryChanged();
  }
}

QVariantList DeckEditorModel::categories() {
  QVariantList all;
  for (const auto category : DeckTemplates::categoryOrder) {
    all.append(QVariantMap{{QStringLiteral("id"), text(rawValue(category))},
                           {QStringLiteral("name"), shownName(displayName(category))}});
  }
  return all;
}

QString DeckEditorModel::libraryTab() const {
  return text(rawValue(libraryTab_));
}

void DeckEditorModel::setLibraryTab(const QString& tab) {
  const auto chosen = fromRawValue<LibraryTab>(tab.toStdString());
  if (chosen && *chosen != libraryTab_) {
    libraryTab_ = *chosen;
    Q_EMIT libraryTabChanged();
  }
}

QVariantList DeckEditorModel::libraryTabs() {
  const auto tab = [](LibraryTab id, const QString& title, const QString& placeholder) {
    return QVariantMap{{QStringLiteral("id"), text(rawValue(id))},
                       {QStringLiteral("title"), title},
                       {QStringLiteral("searchPlaceholder"), placeholder}};
  };
  return {tab(LibraryTab::apps, tr("App Library"), tr("Search installed apps")),
          tab(LibraryTab::actions, tr("Action Library"), tr("Search actions")),
          tab(LibraryTab::shortcuts, tr("Shortcuts Library"), tr("Search Shortcuts"))};
}

void DeckEditorModel::setSearchText(const QString& wanted) {
  if (wanted == searchText_) {
    return;
  }
  searchText_ = wanted;
  for (auto* library : {apps_->cards(), &actionCards_, shortcuts_->cards()}) {
    library->setFilter(searchText_);
  }
  Q_EMIT searchTextChanged();
}

DeckLibraryModel* DeckEditorModel::cards() {
  switch (libraryTab_) {
    case LibraryTab::actions:
      return &actionCards_;
    case LibraryTab::shortcuts:
      return shortcuts_->cards();
    case LibraryTab::apps:
      break;
  }
  return apps_->cards();
}

QString DeckEditorModel::suggestedWarnings() const {
  QStringList warnings;
  if (apps_->isLoaded() && !apps_->hasLabelWith(QStringLiteral("Cursor"))) {
    warnings.append(tr("Cursor isn\u2019t installed."));
  }
  if (apps_->isLoaded() && !apps_->hasLabelWith(QStringLiteral("Wispr"))) {
    warnings.append(tr("Wispr Flow isn\u2019t installed."));
  }
  return warnings.join(QLatin1Char(' '));
}

std::set<std::string> DeckEditorModel::missingShortcutIDs() const {
  return shortcuts_->isKnown()
             ? DeckEdits::missingShortcutIDs(tiles(), shortcuts_->catalogShortcuts())
             : std::set<std::string>();
}

QString DeckEditorModel::syncLabel() const {
  return hasUnsavedChanges() ? tr("Unsaved") : tr("Synced");
}

QString DeckEditorModel::offerText() const {
  const auto& offer = session_->offer();
  if (!offer) {
    return {};
  }
  const auto made = QDateTime::fromSecsSinceEpoch(offer->editedAt.time.time_since_epoch().count());
  // In the user's formats, which may differ from the language of the windows.
  const QLocale locale = QLocale::system();
  const QString time = locale.language() == QLocale::C
                           ? made.time().toString(QStringLiteral("HH:mm"))
                           : locale.toString(made.time(), QLocale::ShortFormat);
  const QString date = locale.toString(made.date(), QLocale::ShortFormat);
  const bool isOfToday = made.date() == QDate::currentDate();
  return tr("Unsaved changes from %1").arg(isOfToday ? time : date + QStringLiteral(", ") + time);
}

void DeckEditorModel::setDropTargetIndex(int index) {
  if (index != dropTargetIndex_) {
    dropTargetIndex_ = index;
    Q_EMIT dragChanged();
  }
}

void DeckEditorModel::dismissFirstShortcutTip() {
  if (showFirstShortcutTip_) {
    showFirstShortcutTip_ = false;
    Q_EMIT tipChanged();
  }
}

void DeckEditorModel::refreshLive() {
  session_->refreshPhone();
  showKeys();
}

void DeckEditorModel::showKeys() {
  const auto missing = missingShortcutIDs();
  std::vector<DeckKey> keys;
  std::array<QSet<QString>, 3> payloads;
  std::set<std::string> bundleIds;
  for (const auto& tile : tiles()) {
    keys.push_back(keyOf(tile, missing));
    payloads.at(static_cast<std::size_t>(tile.kind)).insert(text(tile.derivedId()));
    bundleIds.insert(tile.bundleId);
  }
  tilesModel_.setKeys(keys);
  apps_->setDrawnFirst(std::move(bundleIds));
  apps_->cards()->setDeck(payloads.at(static_cast<std::size_t>(DeckTileKind::app)), isFull());
  actionCards_.setDeck(payloads.at(static_cast<std::size_t>(DeckTileKind::action)), isFull());
  shortcuts_->cards()->setDeck(payloads.at(static_cast<std::size_t>(DeckTileKind::shortcut)),
                               isFull());
}

DeckKey DeckEditorModel::keyOf(const DeckTile& tile, const std::set<std::string>& missing) const {
  DeckKey key{.tile = tile, .iconSource = {}, .accent = fallbackAccent()};
  if (const auto trial = trials_.find({tile.kind, tile.derivedId()}); trial != trials_.end()) {
    key.trial = trial->second;
  }
  if (tile.kind == DeckTileKind::app) {
    const auto installed = DeckTemplateFilter::resolveBundleId(
        tile,
        [this](const std::string& bundleId) { return inputs_.workspace.isInstalled(bundleId); });
    key.isInstalled = installed.has_value();
    const auto bundleId = installed.value_or(tile.bundleId);
    key.isRunning = installed && inputs_.workspace.isRunning(bundleId);
    key.iconSource = apps_->iconSource(bundleId);
    if (const auto* app = apps_->app(bundleId)) {
      key.accent = app->accent;
    }
  } else if (tile.kind == DeckTileKind::shortcut && tile.shortcutIdentifier) {
    key.isMissingShortcut = missing.contains(*tile.shortcutIdentifier);
    if (const auto* icon = shortcuts_->icon(*tile.shortcutIdentifier)) {
      key.iconSource = icon->source;
      key.accent = icon->accent;
    }
  }
  return key;
}

}  // namespace glintboard
