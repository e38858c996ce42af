// SPDX-License-Identifier: MIT
// Dragging cards and keys.
#include "tests/editor/editor_window.h"

namespace glintboard {
namespace {

using DragTest = test::EditorWindowTest;

TEST_F(DragTest, DroppedKeysMoveOrReturn) {
  storeDeck({app("calendar", "Calendar"), app("files", "Files"), app("music", "Music"),
             app("notes", "Notes")});
  open();
  drag(key("Calendar"), slot(2));
  EXPECT_EQ(shown(), "Files, Music, Calendar, Notes");
  drag(key("Notes"), slot(0));
  EXPECT_EQ(shown(), "Notes, Files, Music, Calendar");
  drag(key("Notes"), slot(17));
  EXPECT_EQ(shown(), "Files, Music, Calendar, Notes") << "a drop beyond the last key appends";
  drag(key("Files"), QPoint(300, 400));
  EXPECT_EQ(shown(), "Files, Music, Calendar, Notes");
  // A card whose key is on the deck moves that key.
  drag(card("Notes"), slot(1));
  EXPECT_EQ(shown(), "Files, Notes, Music, Calendar");
  EXPECT_TRUE(model->errorMessage().isEmpty());
}

TEST_F(DragTest, KeysMakeRoomAndEscapeCancelsTheDrag) {
  storeDeck({app("files", "Files")});
  open();
  const QPoint from = card("Music");
  QTest::mousePress(window, Qt::LeftButton, {}, from);
  moveTo(from, slot(0));
  settle();
  EXPECT_EQ(model->dropTargetIndex(), 0);
  EXPECT_TRUE(model->isDeckDragActive());
  EXPECT_GE(keyItem("Files")->x(), keyItem("Files")->width()) << "it makes room";
  EXPECT_EQ(model->tiles().size(), 1U) << "not dropped yet";
  press(Qt::Key_Escape);
  QTest::mouseRelease(window, Qt::LeftButton, {}, slot(0));
  EXPECT_EQ(shown(), "Files");
  EXPECT_EQ(model->dropTargetIndex(), -1);
  EXPECT_FALSE(model->isDeckDragActive());
  ASSERT_NE(window, nullptr);
  press(Qt::Key_Escape);
  EXPECT_TRUE(test::turnUntil([&] { return window == nullptr; })) << "like Cancel";
}

TEST_F(DragTest, FullDeckRefusesCardsButReordersKeys) {
  storeApps(24);
  open();
  EXPECT_EQ(item("counter")->property("text"), "24 / 24");
  model->setSearchText("Cal");
  settle();
  click(card("Calendar"));
  drag(card("Calendar"), slot(0));
  EXPECT_EQ(model->tiles().size(), 24U);
  EXPECT_EQ(model->tiles().front().label, "App 0");
  drag(key("App 23"), slot(0));
  EXPECT_EQ(model->tiles().front().label, "App 23");
  EXPECT_EQ(model->tiles().size(), 24U);
}

TEST_F(DragTest, ClickAddsACardAndReportsADuplicate) {
  storeDeck({});
  open();
  click(card("Calendar"));
  EXPECT_EQ(shown(), "Calendar");
  click(card("Calendar"));
  EXPECT_EQ(item("error")->property("message"), "calendar is already on the deck.");
  EXPECT_TRUE(item("error")->isVisible());
  click(card("Files"));
  EXPECT_FALSE(item("error")->isVisible());
  EXPECT_EQ(shown(), "Calendar, Files");
}

TEST_F(DragTest, BadgeOfAHoveredKeyRemovesIt) {
  storeDeck({app("files", "Files"), app("music", "Music")});
  open();
  auto* badge = keyItem("Music")->findChild<QQuickItem*>("remove");
  ASSERT_NE(badge, nullptr);
  EXPECT_FALSE(badge->isVisible());
  QTest::mouseMove(window, key("Music"));
  EXPECT_TRUE(test::turnUntil([&] { return badge->isVisible(); }));
  click(middleOf(badge));
  EXPECT_EQ(shown(), "Files");
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(shown(), "Files, Music");
}

TEST_F(DragTest, KeysWobbleOnlyWhileThePointerIsOnThePhone) {
  storeDeck({app("files", "Files")});
  open();
  auto* mover = keyItem("Files")->findChild<QObject*>("wobble");
  ASSERT_NE(mover, nullptr);
  EXPECT_FALSE(mover->property("isActive").toBool());
  QTest::mouseMove(window, slot(9));
  EXPECT_TRUE(test::turnUntil([&] { return mover->property("isActive").toBool(); }));
}

}  // namespace
}  // namespace glintboard
