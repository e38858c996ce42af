// SPDX-License-Identifier: MIT
// A deck editor without its window.
#pragma once

#include <gmock/gmock.h>

#include "tests/support/editor_stage.h"

namespace glintboard::test {

class EditorTest : public testing::Test, protected EditorStage {
 protected:
  EditorTest() {
    // The installed keys of the built-in Streaming deck in order, and one other application.
    app("discord", "Discord");
    app("com.apple.Safari", "Safari");
    app("com.apple.Music", "Music");
    app("editor", "Text Editor");
    listShortcuts(std::string("echo 'Brew (") + briefId + ")'; echo 'Tidy up (" + tidyId + ")'");
  }

  // Opens the editor and waits until everything is loaded.
  void open() {
    model = DeckEditorModel::create(inputs());
    QObject::connect(model.get(), &DeckEditorModel::closeRequested, [this] { ++closeRequests; });
    model->open();
    ASSERT_TRUE(turnUntil([&] {
      return !model->isLoading() && model->apps()->isLoaded() &&
             model->shortcuts()->loadState() != ShortcutsLoadState::loading;
    }));
  }
  void save() {
    model->save();
    ASSERT_TRUE(turnUntil([&] { return !model->isSaving(); }));
  }
  // Runs a reset, or an undo or redo of one, and waits for it.
  void replace(void (DeckEditorModel::*change)()) {
    (model.get()->*change)();
    ASSERT_TRUE(turnUntil([&] { return !model->isResetting(); }));
  }
  // Makes the decks impossible to store: a file takes the name of their folder.
  void breakStore() const {
    std::filesystem::remove_all(desktop.root / "agent");
    desktop.root.write("agent", "");
  }
  // Ends the agent and starts another, which knows only what is on disk.
  void startAgain() {
    model->close();
    await(executors.service(), drafts.finish());
    histories = std::make_shared<DeckHistories>();
    open();
  }
  void loadDeck(const QString& category) {
    model->setSelectedCategory(category);
    ASSERT_TRUE(turnUntil([&] { return !model->isLoading(); }));
  }

  // The keys of the model, as "1 Discord, 2 Safari".
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
  // The labels of the visible cards.
  static std::string labels(DeckLibraryModel* cards) {
    QStringList texts;
    for (int row = 0; row < cards->rowCount(); ++row) {
      texts.append(cards->index(row).data(DeckLibraryModel::LabelRole).toString());
    }
    return texts.join(", ").toStdString();
  }
  std::string storedName(DeckCategoryID category) {
    return await(executors.service(), store.loadDeck(category, inputs().workspace)).name;
  }

  int closeRequests = 0;
  std::shared_ptr<DeckEditorModel> model;
};

}  // namespace glintboard::test
