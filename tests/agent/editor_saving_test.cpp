// SPDX-License-Identifier: MIT
// Saves, resets and drafts of the deck editor.
#include "tests/agent/editor_fixture.h"

namespace glintboard {
namespace {

using test::turnUntil;

using DeckEditorTest = test::EditorTest;

TEST_F(DeckEditorTest, SaveReportsWhetherThePhoneHasTheDeck) {
  open();
  EXPECT_FALSE(model->syncIsLive());
  model->setDeckName(" \n");
  model->remove(0);
  save();
  EXPECT_EQ(storedName(DeckCategoryID::streaming), "Streaming");
  EXPECT_EQ(model->deckName(), "Streaming");
  EXPECT_EQ(model->syncLabel(), "Synced");
  EXPECT_EQ(model->infoMessage(), "Saved on Mac \u2014 connect iPhone to update.");
  EXPECT_EQ(closeRequests, 0);
  EXPECT_EQ(announcements, 1);
  model->addApp("editor");
  EXPECT_FALSE(model->infoMessage().isNull()) << "adding an application keeps the message";
  model->addAction("system.volume.up");
  EXPECT_TRUE(model->infoMessage().isNull());

  phone = true;
  model->refreshLive();
  EXPECT_FALSE(model->syncIsLive());
  model->setDeckName("  On air ");
  save();
  EXPECT_TRUE(model->syncIsLive());
  EXPECT_EQ(storedName(DeckCategoryID::streaming), "On air");
  EXPECT_EQ(closeRequests, 1);
}

TEST_F(DeckEditorTest, SyncStateFollowsTheConnectionOfThePhone) {
  open();
  phone = true;
  save();
  phone = false;
  EXPECT_TRUE(model->syncIsLive()) << "not refreshed yet";
  save();
  EXPECT_FALSE(model->syncIsLive());
  EXPECT_EQ(model->infoMessage(), "Saved on Mac \u2014 connect iPhone to update.");
  phone = true;
  model->refreshLive();
  EXPECT_TRUE(model->syncIsLive()) << "a connecting phone requests the decks";
  phone = false;
  model->refreshLive();
  EXPECT_FALSE(model->syncIsLive());
}

TEST_F(DeckEditorTest, SaveReportsThatThePhoneWasNotNotified) {
  open();
  phone = true;
  onSaved = [] {
    return []() -> Awaitable<> {
      throw std::runtime_error("cut");
      co_return;
    }();
  };
  model->setDeckName("Unheard");
  save();
  EXPECT_EQ(model->errorMessage(), "cut");
  EXPECT_EQ(model->syncLabel(), "Synced");
  EXPECT_FALSE(model->syncIsLive());
  EXPECT_EQ(closeRequests, 0);
  onSaved = nullptr;
  save();
  EXPECT_TRUE(model->syncIsLive());
  EXPECT_EQ(closeRequests, 1);
}

TEST_F(DeckEditorTest, FailedSaveAndResetKeepTheEdits) {
  open();
  phone = true;
  breakStore();
  model->setDeckName("Lost");
  save();
  const QString error = model->errorMessage();
  EXPECT_FALSE(error.isNull());
  EXPECT_EQ(model->syncLabel(), "Unsaved");
  EXPECT_EQ(closeRequests + announcements, 0);
  replace(&DeckEditorModel::reset);
  EXPECT_EQ(model->errorMessage(), error);
  EXPECT_EQ(model->deckName(), "Lost");
}

TEST_F(DeckEditorTest, KeepsDecksApartDuringASave) {
  open();
  phone = true;
  model->setDeckName("First");
  model->save();
  EXPECT_TRUE(model->canUndo());
  model->setSelectedCategory("gaming");
  EXPECT_FALSE(model->canUndo());
  model->setDeckName("Not loaded yet");
  model->remove(0);
  model->setSelectedCategory("streaming");
  ASSERT_TRUE(turnUntil([&] { return !model->isSaving() && !model->isLoading(); }));
  EXPECT_EQ(model->deckName(), "First") << "what was saved is what is loaded";
  EXPECT_EQ(model->syncLabel(), "Synced");
  EXPECT_EQ(closeRequests, 0) << "the user has gone to another deck";
  EXPECT_EQ(storedName(DeckCategoryID::gaming), "Gaming");

  model->setDeckName("Second");
  model->save();
  model->setDeckName("Third");
  ASSERT_TRUE(turnUntil([&] { return !model->isSaving(); }));
  EXPECT_EQ(model->syncLabel(), "Unsaved");
  EXPECT_EQ(closeRequests, 0) << "edits during the save are kept";
  EXPECT_EQ(storedName(DeckCategoryID::streaming), "Second");

  phone = false;
  for (const auto change : {&DeckEditorModel::save, &DeckEditorModel::reset}) {
    // The second round cannot store.
    (model.get()->*change)();
    model->setSelectedCategory(model->selectedCategory() == "gaming" ? "streaming" : "gaming");
    ASSERT_TRUE(turnUntil(
        [&] { return !model->isSaving() && !model->isResetting() && !model->isLoading(); }));
    EXPECT_TRUE(model->infoMessage().isNull()) << "it would be about the other deck";
    EXPECT_TRUE(model->errorMessage().isNull());
    breakStore();
  }
}

TEST_F(DeckEditorTest, UndoOfAResetRestoresTheStoredDeck) {
  const std::string builtIn = "1 Discord, 2 Safari, 3 Music";
  open();
  model->setDeckName("Mine");
  save();
  model->remove(0);
  replace(&DeckEditorModel::reset);
  EXPECT_EQ(keys(), builtIn);
  EXPECT_EQ(storedName(DeckCategoryID::streaming), "Streaming");
  EXPECT_EQ(model->syncLabel(), "Synced");
  EXPECT_EQ(model->infoMessage(), "The default deck is in place. Undo brings yours back.");
  ASSERT_TRUE(turnUntil([&] { return announcements == 2; }));

  phone = true;
  model->refreshLive();
  for (int round = 0; round < 2; ++round) {
    announcements = 0;
    replace(&DeckEditorModel::undo);
    EXPECT_EQ(keys(), "1 Safari, 2 Music") << "with the unsaved edits";
    EXPECT_EQ(model->deckName(), "Mine");
    EXPECT_EQ(model->syncLabel(), "Unsaved");
    EXPECT_EQ(storedName(DeckCategoryID::streaming), "Mine");
    EXPECT_EQ(model->savedTiles().size(), 3u);
    ASSERT_TRUE(turnUntil([&] { return announcements == 1; }));
    EXPECT_TRUE(turnUntil([&] {
      return model->infoMessage() ==
             "The reset is undone: your deck is saved and on the iPhone again.";
    }));
    model->undo();
    EXPECT_EQ(keys(), builtIn) << "the edit before the reset";
    EXPECT_EQ(model->deckName(), "Mine");
    EXPECT_EQ(model->syncLabel(), "Synced");
    model->redo();
    replace(&DeckEditorModel::redo);
    EXPECT_EQ(storedName(DeckCategoryID::streaming), "Streaming");
    ASSERT_TRUE(turnUntil([&] { return announcements == 2; }));
  }
}

TEST_F(DeckEditorTest, UndoReachesOverASaveAndIntoAnotherWindow) {
  open();
  model->setDeckName("Mine");
  save();
  replace(&DeckEditorModel::reset);
  model->save();
  EXPECT_FALSE(model->canUndo()) << "during the save";
  ASSERT_TRUE(turnUntil([&] { return !model->isSaving(); }));
  model->close();
  open();
  loadDeck("gaming");
  EXPECT_FALSE(model->canUndo());
  loadDeck("streaming");
  replace(&DeckEditorModel::undo);
  EXPECT_EQ(storedName(DeckCategoryID::streaming), "Mine");
}

TEST_F(DeckEditorTest, UndoOfAResetThatCannotBeStoredLeavesUnsavedEdits) {
  open();
  model->remove(0);
  replace(&DeckEditorModel::reset);
  breakStore();
  replace(&DeckEditorModel::undo);
  EXPECT_FALSE(model->errorMessage().isNull());
  EXPECT_EQ(keys(), "1 Safari, 2 Music");
  EXPECT_EQ(model->savedTiles().size(), 3u);
  EXPECT_EQ(model->syncLabel(), "Unsaved");
}

TEST_F(DeckEditorTest, KeepsUnsavedEditsAsADraft) {
  open();
  EXPECT_EQ(model->offerText(), "");
  model->remove(0);
  startAgain();
  EXPECT_EQ(keys(), "1 Discord, 2 Safari, 3 Music") << "the draft does not replace the stored deck";
  EXPECT_EQ(model->syncLabel(), "Synced");
  EXPECT_TRUE(model->offerText().startsWith("Unsaved changes from "));
  EXPECT_FALSE(model->isOfferOutdated());
  EXPECT_FALSE(model->canUndo());
  startAgain();
  EXPECT_NE(model->offerText(), "") << "offered until it is answered";

  model->restoreOffer();
  EXPECT_EQ(keys(), "1 Safari, 2 Music");
  EXPECT_EQ(model->syncLabel(), "Unsaved");
  EXPECT_EQ(model->offerText(), "");
  model->undo();
  EXPECT_EQ(model->syncLabel(), "Synced");
}

TEST_F(DeckEditorTest, KeepsADraftOfEachDeck) {
  open();
  model->remove(0);
  loadDeck("gaming");
  EXPECT_EQ(model->offerText(), "");
  model->setDeckName("Night");
  loadDeck("streaming");
  EXPECT_NE(model->offerText(), "");
  model->undo();
  EXPECT_EQ(keys(), "1 Safari, 2 Music") << "undo restores the draft too";
  save();
  startAgain();
  EXPECT_EQ(model->offerText(), "");
  loadDeck("gaming");
  EXPECT_NE(model->offerText(), "");
}

TEST_F(DeckEditorTest, RemovesADraftThatWasSavedDismissedOrUndone) {
  open();
  model->setDeckName("Dismissed");
  startAgain();
  model->dismissOffer();
  startAgain();
  EXPECT_EQ(model->offerText(), "");
  EXPECT_EQ(model->deckName(), "Streaming");

  model->setDeckName("Outdated");
  model->close();
  deck(DeckCategoryID::streaming, "Elsewhere", {});
  startAgain();
  EXPECT_TRUE(model->isOfferOutdated());
  save();
  EXPECT_EQ(model->offerText(), "");
  model->setDeckName("Undone");
  model->undo();
  startAgain();
  EXPECT_EQ(model->offerText(), "");
}

TEST_F(DeckEditorTest, IgnoresInvalidDrafts) {
  const auto file = desktop.folders.stateHome / "streaming.json";
  open();
  model->setDeckName("Draft");
  startAgain();
  ASSERT_NE(model->offerText(), "");
  const std::string draft = readWholeFile(file);
  std::string other = draft;
  other.replace(other.rfind("streaming"), 9, "gaming");
  std::string later = draft;
  later.replace(later.rfind(":1}"), 3, ":2}");
  for (const auto& content : {std::string(), draft.substr(0, draft.size() / 2), other, later}) {
    writeAtomically(file, content, 0600);
    startAgain();
    EXPECT_EQ(model->offerText(), "") << content;
    EXPECT_EQ(model->deckName(), "Streaming");
  }
  writeAtomically(file, draft, 0600);
  startAgain();
  EXPECT_NE(model->offerText(), "");
}

}  // namespace
}  // namespace glintboard
