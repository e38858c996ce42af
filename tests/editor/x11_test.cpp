// The editor on a real window system.
#include <QScreen>

#include "tests/editor/editor_window.h"
#include "tests/platform/x_server.h"

namespace glintboard {
namespace {

class EditorOnX11Test : public test::EditorWindowTest {
 protected:
  void pointer(const std::string& arguments) const {
    test::outputOf("xdotool " + arguments);
    stage.turnFor(20);
  }
  std::string at(QPoint point) const {
    const QPoint there = window->mapToGlobal(point);
    return "mousemove " + std::to_string(there.x()) + " " + std::to_string(there.y());
  }
};

TEST_F(EditorOnX11Test, OpensInTheMiddleOfTheScreenNoLargerThanIt) {
  open();
  const QRect screen = window->screen()->availableGeometry();
  EXPECT_LE(window->width(), screen.width());
  EXPECT_NEAR(window->geometry().center().x(), screen.center().x(), 8);
  EXPECT_EQ(window->title(), "Edit Deck");
  window->showMinimized();
  EXPECT_TRUE(test::turnUntil([&] { return !window->isActive(); }));
  stage.presenter->show();
  EXPECT_TRUE(test::turnUntil([&] { return window->isActive(); })) << "comes back to the front";
}

TEST_F(EditorOnX11Test, ThePointerDragsACardToTheFirstSlot) {
  storeDeck({app("files", "Files"), app("music", "Music")});
  open();
  const QPoint from = card("Calendar");
  const QPoint to = slot(0);
  pointer(at(from));
  pointer("mousedown 1");
  for (int step = 1; step <= 10; ++step) {
    pointer(at(from + (to - from) * step / 10));
  }
  EXPECT_TRUE(test::turnUntil([&] { return model->dropTargetIndex() == 0; }));
  pointer("mouseup 1");
  settle();
  EXPECT_EQ(shown(), "Calendar, Files, Music");
  pointer("key ctrl+z");
  settle();
  EXPECT_EQ(shown(), "Files, Music");
  pointer("key Escape");
  EXPECT_TRUE(test::turnUntil([&] { return window == nullptr; }));
}

}  // namespace
}  // namespace glintboard

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) {
    return RUN_ALL_TESTS();
  }
  const glintboard::test::XServer server;
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("QT_QUICK_BACKEND", "software");
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
