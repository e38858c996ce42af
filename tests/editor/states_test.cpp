// SPDX-License-Identifier: MIT
// The texts of the window in its states.
#include "tests/editor/editor_window.h"

namespace glintboard {
namespace {

class EditorStatesTest : public test::EditorWindowTest {
 protected:
  // The visible texts.
  QStringList texts() const { return textsOf(window->rootObject()); }
  static QStringList textsOf(QQuickItem* root) {
    QStringList all;
    for (auto* child : root->childItems()) {
      if (!child->isVisible() || child->opacity() == 0) {
        continue;
      }
      if (child->inherits("QQuickText")) {
        all.append(child->property("text").toString());
      }
      all += textsOf(child);
    }
    return all;
  }
  void expect(const QStringList& wanted) const {
    const QStringList read = texts();
    for (const auto& text : wanted) {
      EXPECT_TRUE(read.contains(text)) << text.toStdString();
    }
  }
};

TEST_F(EditorStatesTest, LoadsWithoutWarningsInEveryAppearance) {
  storeDeck({app("files", "Files")});
  for (const bool dark : {false, true}) {
    open({dark, dark, dark, dark ? 1.5 : 1});
    for (const auto* tab : {"actions", "shortcuts", "apps"}) {
      model->setLibraryTab(tab);
      settle();
      EXPECT_FALSE(window->grabWindow().isNull());
    }
    const QImage before = window->grabWindow();
    stage.presenter->setAppearance({.dark = !dark});
    settle();
    EXPECT_FALSE(window->grabWindow() == before) << "an open window follows the appearance";
    window->resize(860, 600);
    settle();
    stage.presenter->close();
    test::turnUntil([&] { return window == nullptr; });
  }
}

TEST_F(EditorStatesTest, ShowsWhyAListingFailedAndRetries) {
  stage.listShortcuts("echo 'no answer' >&2; exit 1");
  storeDeck({});
  open();
  click("tab-shortcuts");
  expect({"Could not list Shortcuts: no answer", "Retry", "Open Shortcuts"});
  stage.listShortcuts("true");
  click("retry");
  ASSERT_TRUE(test::turnUntil(
      [&] { return model->shortcuts()->loadState() == ShortcutsLoadState::empty; }));
  settle();
  expect({"Create one in Shortcuts, then refresh.", "Refresh", "Suggested",
          "Voice prompt in Cursor",
          QString::fromUtf8("Create \u201cGlintboard \u2014 Voice in Cursor\u201d in Shortcuts "
                            "(open Cursor, then start Wispr Flow). No Ask for Input steps."),
          QString::fromUtf8("Cursor isn\u2019t installed. Wispr Flow isn\u2019t installed."),
          "The first run may ask for permission on your Mac."});
}

TEST_F(EditorStatesTest, ShowsATipForTheFirstShortcut) {
  storeDeck({});
  open();
  click("tab-shortcuts");
  for (const auto& goesBy : std::vector<std::function<void()>>{
           [&] { model->undo(); }, [&] { model->setSelectedCategory("gaming"); },
           [&] { model->reset(); }}) {
    model->addShortcut(test::EditorStage::briefId);
    settle();
    EXPECT_TRUE(item("tip")->isVisible());
    goesBy();
    EXPECT_TRUE(test::turnUntil([&] { return !item("tip")->isVisible(); })) << "the key is gone";
    settle();
  }
  click(card("Brew"));
  settle();
  click("tip-done");
  EXPECT_FALSE(item("tip")->isVisible());
  click(card("Tidy up"));
  EXPECT_FALSE(item("tip")->isVisible());
  EXPECT_EQ(shown(), "Brew, Tidy up");
}

TEST_F(EditorStatesTest, ShowsNoMatchesInEveryLibrary) {
  stage.listShortcuts("true");
  storeDeck({});
  open();
  model->setSearchText("zzz");
  for (const auto* tab : {"tab-apps", "tab-actions", "tab-shortcuts"}) {
    click(tab);
    expect({"No matches"});
  }
}

TEST_F(EditorStatesTest, NotesThatPhonesShowOnlyTheStreamingDeck) {
  const QString note = "The iPhone shows the Streaming deck only for now.";
  storeDeck({app("files", "Files")});
  open();
  EXPECT_FALSE(texts().contains(note));
  item("category")->forceActiveFocus(Qt::TabFocusReason);
  press(Qt::Key_Down);
  EXPECT_TRUE(test::turnUntil([&] { return !model->isLoading(); }));
  settle();
  EXPECT_EQ(model->selectedCategory(), "gaming");
  expect({note, "0 / 24"});
}

TEST_F(EditorStatesTest, ReopensAfreshAndRaisesAnOpenWindow) {
  storeDeck({app("files", "Files")});
  open();
  stage.presenter->show();
  EXPECT_EQ(stage.presenter->window(), window) << "one window at a time";
  model->setLibraryTab("actions");
  model->remove(0);
  const std::weak_ptr<DeckEditorModel> first = std::exchange(model, nullptr);
  press(Qt::Key_Escape);
  ASSERT_TRUE(test::turnUntil([&] { return window == nullptr; }));
  EXPECT_EQ(stage.presenter->model(), nullptr);
  EXPECT_TRUE(test::turnUntil([&] { return first.expired(); })) << "the model is released";
  open();
  EXPECT_EQ(model->libraryTab(), "apps");
  EXPECT_EQ(shown(), "Files");

  // The draft has the edits that Escape discarded.
  EXPECT_TRUE(item("offer")->isVisible());
  expect({model->offerText()});
  click("offer-restore");
  EXPECT_EQ(shown(), "");
  EXPECT_FALSE(item("offer")->isVisible());
  EXPECT_TRUE(window->rootObject()->hasActiveFocus()) << "keyboard shortcuts still work";
}

}  // namespace
}  // namespace glintboard
