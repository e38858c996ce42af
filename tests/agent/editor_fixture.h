// A deck editor over real files: desktop entries, a decks file and a stand-in for the tool that
// lists Shortcuts.
#pragma once

#include <gmock/gmock.h>

#include <QGuiApplication>

#include "agent/editor/deck_editor_model.h"
#include "platform/linux/foundation_process_runner.h"
#include "platform/linux/linux_applications.h"
#include "platform/main_thread.h"
#include "tests/platform/desktop_folders.h"
#include "tests/support/await.h"
#include "tests/support/turn_until.h"

namespace glintboard::test {

inline constexpr const char* brewId = "A0000000-0000-0000-0000-00000000000A";
inline constexpr const char* tidyId = "B0000000-0000-0000-0000-00000000000B";

class EditorTest : public testing::Test {
 protected:
  EditorTest() {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    application.emplace(argumentCount, arguments);
    // What of the built-in Streaming deck is installed, in its order, and one application more.
    entry("discord", "Discord");
    entry("com.apple.Safari", "Safari");
    entry("com.apple.Music", "Music");
    entry("editor", "Text Editor");
    listShortcuts(std::string("echo 'Brew (") + brewId + ")'; echo 'Tidy up (" + tidyId + ")'");
  }
  ~EditorTest() override { model.reset(); }

  void entry(const std::string& id, const std::string& name, const std::string& more = "") const {
    desktop.root.write("system/applications/" + id + ".desktop",
                       "[Desktop Entry]\nType=Application\nExec=true\nName=" + name + "\n" + more);
  }
  void listShortcuts(const std::string& script) const {
    desktop.program("shortcuts", "#!/bin/sh\n" + script + "\n");
  }

  // The editor, its window not open yet.
  void make() {
    applications.emplace(executors, desktop.folders);
    runner.emplace(executors.service());
    shortcutIcons.emplace(executors.workerStrand(),
                          ShortcutIconClient{[](const std::string&) { return std::nullopt; },
                                             [this] { return iconsOfShortcuts; }});
    model = DeckEditorModel::create(
        {.mainThread = mainThread.executor(),
         .timers = executors.service(),
         .workers = executors.workers(),
         .deckStore = store,
         .workspace = applications->workspaceClient(),
         .appsCatalog = InstalledAppsCatalog(executors.workers(), applications->listClient(),
                                             applications->iconClient()),
         .shortcutsCatalog = ShortcutsCatalog(desktop.root / "shortcuts", *runner),
         .shortcutIconProvider = *shortcutIcons,
         .isPhoneConnected = [this] { return phone; },
         .onSaved = [this] { return saved(); }});
    QObject::connect(model.get(), &DeckEditorModel::closeRequested, [this] { ++closeRequests; });
  }
  // The editor with everything loaded.
  void open() {
    make();
    model->open();
    ASSERT_TRUE(turnUntil([&] {
      return !model->isLoading() && model->apps()->isLoaded() &&
             model->shortcuts()->loadState() != ShortcutsLoadState::loading;
    }));
  }
  Awaitable<> saved() {
    ++announcements;
    co_return;
  }
  void save() {
    model->save();
    ASSERT_TRUE(turnUntil([&] { return !model->isSaving(); }));
  }
  void loadDeck(const QString& category) {
    model->setSelectedCategory(category);
    ASSERT_TRUE(turnUntil([&] { return !model->isLoading(); }));
  }

  // "1 Discord, 2 Safari": the keys as the view is told of them.
  std::string keys() const {
    QStringList texts;
    auto* tiles = model->tilesModel();
    for (int row = 0; row < tiles->rowCount(); ++row) {
      const auto index = tiles->index(row);
      texts.append(index.data(DeckTilesModel::SlotRole).toString() + " " +
                   index.data(DeckTilesModel::LabelRole).toString());
    }
    return texts.join(", ").toStdString();
  }
  // The labels of the cards shown.
  static std::string labels(DeckLibraryModel* cards) {
    QStringList texts;
    for (int row = 0; row < cards->rowCount(); ++row) {
      texts.append(cards->index(row).data(DeckLibraryModel::LabelRole).toString());
    }
    return texts.join(", ").toStdString();
  }
  std::string storedName(DeckCategoryID category) {
    const auto workspace = applications->workspaceClient();
    return await(executors.service(), store.loadDeck(category, workspace)).name;
  }

  int argumentCount = 1;
  char program[5] = "test";
  char* arguments[2] = {program, nullptr};
  std::optional<QGuiApplication> application;
  MainThread mainThread;
  DesktopFolders desktop;
  std::vector<ShortcutIconClient::Icon> iconsOfShortcuts;
  bool phone = false;
  int announcements = 0;
  int closeRequests = 0;
  Executors executors;
  DeckStore store{executors.service(), executors.workers(), desktop.root / "agent/decks.json"};
  std::optional<LinuxApplications> applications;
  std::optional<FoundationProcessRunner> runner;
  std::optional<ShortcutIconProvider> shortcutIcons;
  std::shared_ptr<DeckEditorModel> model;
};

}  // namespace glintboard::test
