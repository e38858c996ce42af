// SPDX-License-Identifier: MIT
// A deck editor's window over real files: desktop entries with icons, a decks file and a stand-in
// for the tool that lists Shortcuts.
#pragma once

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>

#include "agent/editor/deck_editor_window_presenter.h"
#include "platform/linux/linux_applications.h"
#include "platform/linux/process/foundation_process_runner.h"
#include "platform/main_thread.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/await.h"
#include "tests/support/turn_until.h"
#include "ui/design/symbols.h"

namespace glintboard::test {

// Needs a QGuiApplication, which outlives it.
class EditorStage {
 public:
  // Work in progress must release the applications before the executors are destroyed.
  ~EditorStage() {
    presenter.reset();
    await(executors.service(), drafts.finish());
    if (applications) {
      const std::weak_ptr index = applications->index();
      applications.reset();
      turnUntil([&] { return index.expired(); });
    }
  }

  static constexpr const char* briefId = "A0000000-0000-0000-0000-00000000000A";
  static constexpr const char* tidyId = "B0000000-0000-0000-0000-00000000000B";

  // Installs an application, with an icon if there is a symbol.
  void app(const std::string& id, const std::string& name, const QString& symbol = {},
           int hue = 0) const {
    std::string icon;
    if (!symbol.isEmpty()) {
      const auto file = "icons/" + id + ".png";
      desktop.root.write(file, "");
      drawnIcon(symbol, hue).save(QString::fromStdString((desktop.root / file).string()));
      icon = "Icon=" + (desktop.root / file).string() + "\n";
    }
    desktop.root.write("system/applications/" + id + ".desktop",
                       "[Desktop Entry]\nType=Application\nExec=true\nName=" + name + "\n" + icon);
  }
  // Replaces the tool that lists Shortcuts by a script.
  void listShortcuts(const std::string& script) const {
    desktop.program("shortcuts", "#!/bin/sh\n" + script + "\n");
  }
  void shortcutIcon(const std::string& id, const QString& symbol, int hue) {
    iconsOfShortcuts.push_back({id, id, [symbol, hue](int side) {
                                  return drawnIcon(symbol, hue)
                                      .scaled(side, side, Qt::KeepAspectRatio,
                                              Qt::SmoothTransformation);
                                }});
  }
  // Stores a deck; its applications must be installed.
  void deck(DeckCategoryID category, const std::string& name, std::vector<DeckTile> tiles) {
    std::int64_t slot = 0;
    for (auto& tile : tiles) {
      tile.slot = ++slot;
    }
    const auto workspace = inputs().workspace;
    await(executors.service(), store.saveDeck(category, name, std::move(tiles), workspace));
  }

  DeckEditorInputs inputs() {
    if (!applications) {
      applications.emplace(executors, desktop.folders);
      runner.emplace(executors.service());
      shortcutIcons.emplace(executors.workerStrand(),
                            ShortcutIconClient{[](const std::string&) { return std::nullopt; },
                                               [this] { return iconsOfShortcuts; }});
    }
    auto workspace = applications->workspaceClient();
    workspace.runningApplication = [this](const std::string& id) {
      return running.contains(id) ? std::optional(RunningApplicationClient{}) : std::nullopt;
    };
    return {.mainThread = mainThread.executor(),
            .timers = executors.service(),
            .workers = executors.workers(),
            .deckStore = store,
            .deckDrafts = drafts,
            .workspace = workspace,
            .appsCatalog = InstalledAppsCatalog(executors.workers(), applications->listClient(),
                                                applications->iconClient()),
            .shortcutsCatalog = ShortcutsCatalog(desktop.root / "shortcuts", *runner),
            .shortcutIconProvider = *shortcutIcons,
            .isPhoneConnected = [this] { return phone.load(); },
            .onSaved = [this] { return saved(); },
            .histories = histories,
            .tryKey = [this](DeckTile key) { return tried(std::move(key)); }};
  }
  Awaitable<std::optional<std::string>> tried(DeckTile key) {
    ++trials;
    co_return key.kind == DeckTileKind::action ? failureOfActions : std::nullopt;
  }
  Awaitable<> saved() {
    ++announcements;
    if (onSaved) {
      auto announcing = onSaved();
      co_await std::move(announcing);
    }
  }
  // Opens the window; the libraries load while the event loop runs.
  DeckEditorModel& open(const Appearance& appearance = {}) {
    presenter.emplace(inputs(), appearance);
    presenter->show();
    return *presenter->model();
  }
  // Whether everything is loaded, icons included.
  bool isLoaded() const {
    const auto model = presenter->model();
    if (!model || model->isLoading() || !model->apps()->isLoaded() ||
        model->shortcuts()->loadState() == ShortcutsLoadState::loading) {
      return false;
    }
    return !withIcons || std::ranges::all_of(model->apps()->installedApps(),
                                             [](const auto& app) { return !app.icon.isNull(); });
  }

  static void turnFor(int milliseconds) {
    turnUntil([] { return false; }, std::chrono::milliseconds(milliseconds));
  }

  static QImage drawnIcon(const QString& symbol, int hue) {
    QImage image(128, 128, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ground(0, 0, 0, 128);
    ground.setColorAt(0, QColor::fromHsv(hue, 150, 250));
    ground.setColorAt(1, QColor::fromHsv((hue + 20) % 360, 210, 200));
    painter.setBrush(ground);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(QRectF(4, 4, 120, 120), 28, 28);
    Symbols::draw(painter, symbol, QRectF(30, 30, 68, 68), Qt::white);
    return image;
  }

  MainThread mainThread;
  DesktopFolders desktop;
  std::vector<ShortcutIconClient::Icon> iconsOfShortcuts;
  std::set<std::string> running;
  std::atomic<bool> phone = false;
  bool withIcons = true;  // every application has an icon to wait for
  int announcements = 0;
  int trials = 0;
  std::optional<std::string> failureOfActions;
  std::function<Awaitable<>()> onSaved;
  Executors executors;
  DeckStore store{executors.service(), executors.workers(), desktop.root / "agent/decks.json"};
  DeckDrafts drafts{executors.service(), executors.workers(), desktop.folders.stateHome};
  // Outlives the windows, as in the agent.
  std::shared_ptr<DeckHistories> histories = std::make_shared<DeckHistories>();
  std::optional<LinuxApplications> applications;
  std::optional<FoundationProcessRunner> runner;
  std::optional<ShortcutIconProvider> shortcutIcons;
  std::optional<DeckEditorWindowPresenter> presenter;
};

}  // namespace glintboard::test
