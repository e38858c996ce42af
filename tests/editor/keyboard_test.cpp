// SPDX-License-Identifier: MIT
// The editor without a pointer.
#include "tests/editor/editor_window.h"

namespace glintboard {
namespace {

class EditorKeyboardTest : public test::EditorWindowTest {
 protected:
  void tabTo(const QString& name) {
    for (int i = 0; i < 30 && !item(name)->hasActiveFocus(); ++i) {
      press(Qt::Key_Tab);
    }
    ASSERT_TRUE(item(name)->hasActiveFocus()) << name.toStdString();
  }
};

TEST_F(EditorKeyboardTest, EditsAndSavesWithoutAPointer) {
  storeDeck({});
  open();
  press(Qt::Key_F, Qt::ControlModifier);
  type("no");
  EXPECT_EQ(model->searchText(), "no");
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  EXPECT_EQ(shown(), "Notes");
  press(Qt::Key_F, Qt::ControlModifier);
  press(Qt::Key_Escape);
  EXPECT_EQ(model->searchText(), "") << "the first Escape clears the search";
  press(Qt::Key_Down);
  press(Qt::Key_Home);
  press(Qt::Key_Space);
  press(Qt::Key_Right);
  press(Qt::Key_Enter);
  EXPECT_EQ(shown(), "Notes, Calendar, Files");

  tabTo("phone");
  press(Qt::Key_Home);
  press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(shown(), "Calendar, Notes, Files");
  press(Qt::Key_Right);
  press(Qt::Key_Return);
  EXPECT_TRUE(test::turnUntil([&] { return stage.trials == 1; }));
  press(Qt::Key_Delete);
  EXPECT_EQ(shown(), "Calendar, Notes");
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(shown(), "Calendar, Notes, Files");
  press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(shown(), "Calendar, Notes");
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(test::turnUntil([&] { return stage.announcements == 1; }));
  settle();
  EXPECT_EQ(item("status")->property("syncLabel"), "Synced");
  EXPECT_EQ(item("info")->property("message"),
            QString::fromUtf8("Saved on Mac \u2014 connect iPhone to update."));
  EXPECT_TRUE(item("info")->isVisible());
}

TEST_F(EditorKeyboardTest, ArrowKeysMoveByRows) {
  storeApps(9);
  open();
  tabTo("phone");
  press(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(model->tiles()[4].label, "App 0");
  press(Qt::Key_Up);
  press(Qt::Key_Up);
  EXPECT_EQ(item("phone")->property("currentIndex"), 0);
  press(Qt::Key_End);
  press(Qt::Key_Down);
  EXPECT_EQ(item("phone")->property("currentIndex"), 8);
  press(Qt::Key_Delete);
  EXPECT_EQ(item("phone")->property("currentIndex"), 7) << "the selection moves to the last key";
}

TEST_F(EditorKeyboardTest, DeckNameIsEditedInPlaceAndUndone) {
  storeDeck({app("files", "Files")});
  open();
  tabTo("name");
  press(Qt::Key_A, Qt::ControlModifier);
  type("Live");
  EXPECT_EQ(model->deckName(), "Live");
  EXPECT_EQ(model->syncLabel(), "Unsaved");
  press(Qt::Key_Escape);
  EXPECT_FALSE(item("name")->hasActiveFocus());
  ASSERT_NE(window, nullptr) << "the first Escape leaves the name field";
  tabTo("name");
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(model->deckName(), "On Air");
  EXPECT_EQ(item("name")->property("text"), "On Air");
  EXPECT_EQ(model->syncLabel(), "Synced");
}

TEST_F(EditorKeyboardTest, EveryControlHasAnAccessibleName) {
  storeDeck({app("files", "Files")});
  stage.drafts.keep(DeckCategoryID::streaming,
                    DeckDraft{{"streaming", "Draft", {}}, {"streaming", "Other", {}}, {}});
  open();
  QAccessible::setActive(true);
  QStringList names;
  const std::function<void(QAccessibleInterface*)> walk = [&](QAccessibleInterface* node) {
    for (int i = 0; i < node->childCount(); ++i) {
      auto* child = node->child(i);
      if (child == nullptr || child->state().invisible) {
        continue;
      }
      const auto role = child->role();
      if (child->state().focusable || role == QAccessible::Button) {
        EXPECT_NE(child->text(QAccessible::Name), "")
            << child->object()->metaObject()->className() << " of role " << role;
      }
      names.append(child->text(QAccessible::Name));
      walk(child);
    }
  };
  walk(QAccessible::queryAccessibleInterface(window.data()));
  for (const auto* name :
       {"Deck", "Deck name", "Cancel", "Save to iPhone", "App Library", "Action Library",
        "Shortcuts Library", "Search installed apps", "Calendar", "Keys on the iPhone", "Files",
        "Undo", "Redo", "Reset to default", "1 of 24 keys", "Synced", "Restore", "Dismiss"}) {
    EXPECT_TRUE(names.contains(name)) << name;
  }
  EXPECT_EQ(names
                .filter(QRegularExpression("^Unsaved changes from .*1970.* The deck has changed "
                                           "since then\\.$"))
                .size(),
            1);
  tabTo("offer-dismiss");
  press(Qt::Key_Space);
  settle();
  EXPECT_FALSE(item("offer")->isVisible());
  EXPECT_EQ(shown(), "Files");
}

}  // namespace
}  // namespace glintboard
