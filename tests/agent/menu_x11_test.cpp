// SPDX-License-Identifier: MIT
// The menu's window on an X server with a window manager.
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QScreen>

#include "platform/compositing.h"
#include "tests/agent/menu_fixture.h"
#include "tests/platform/x_server.h"

namespace glintboard {
namespace {

using test::MenuTest;
using test::turnUntil;

void shell(const std::string& command) {
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

// Owns the selection by which a compositing manager announces itself.
class CompositingManager {
 public:
  CompositingManager() : connection_(xcb_connect(nullptr, nullptr)) {
    const std::string name = "_NET_WM_CM_S0";
    auto* const atom = xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, name.size(), name.data()), nullptr);
    const auto window = xcb_generate_id(connection_);
    const auto* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    xcb_create_window(connection_, 0, window, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection_, window, atom->atom, XCB_CURRENT_TIME);
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    std::free(atom);
  }
  ~CompositingManager() { xcb_disconnect(connection_); }
  CompositingManager(const CompositingManager&) = delete;
  CompositingManager& operator=(const CompositingManager&) = delete;

 private:
  xcb_connection_t* connection_;
};

bool isClosed(MenuWindow& window) {
  return turnUntil([&] { return window.view() == nullptr || !window.view()->isVisible(); });
}

TEST_F(MenuTest, HandlesKeysAndClosesOnEscapeAndFocusLoss) {
  startAndWait();
  shell("xdotool key ctrl+q");
  EXPECT_TRUE(turnUntil([&] { return quits == 1; }));
  shell("xdotool key Escape");
  EXPECT_TRUE(isClosed(*window));

  window->toggle(QPoint(400, 595));
  ASSERT_TRUE(QTest::qWaitForWindowActive(window->view()));
  EXPECT_EQ(window->view()->geometry().bottom(), 595 - 8 - 1);
  QWindow other;
  other.resize(100, 100);
  other.show();
  other.requestActivate();
  EXPECT_TRUE(isClosed(*window));
  // A click on the tray item takes the focus, which closes the menu; it must not reopen it.
  window->toggle(std::nullopt);
  EXPECT_TRUE(isClosed(*window));
  QTest::qWait(350);
  window->toggle(std::nullopt);
  EXPECT_TRUE(window->view()->isVisible());
}

TEST_F(MenuTest, ReopensImmediately) {
  startAndWait();
  for (int i = 0; i < 5; ++i) {
    window->toggle(std::nullopt);
    window->toggle(std::nullopt);
    QTest::qWait(100);
    ASSERT_TRUE(window->view()->isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window->view()));
  }
}

TEST_F(MenuTest, IsTranslucentOnACompositingDesktop) {
  startAndWait();
  EXPECT_EQ(window->view()->style(), MenuStyle::opaquePopover);
  EXPECT_FALSE(window->view()->format().hasAlpha());
  window->toggle(std::nullopt);
  {
    const CompositingManager manager;
    ASSERT_TRUE(compositesWindows());
    window->toggle(std::nullopt);
    EXPECT_EQ(window->view()->style(), MenuStyle::translucentPopover);
    EXPECT_TRUE(window->view()->format().hasAlpha());
    window->toggle(std::nullopt);
  }
  ASSERT_TRUE(turnUntil([] { return !compositesWindows(); }));
}

}  // namespace
}  // namespace glintboard

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) {
    return RUN_ALL_TESTS();
  }
  const glintboard::test::XServer server;
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("QT_QUICK_BACKEND", "software");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
