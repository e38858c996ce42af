// SPDX-License-Identifier: MIT
// The editor on an X server.
#include <QDrag>
#include <QMimeData>
#include <QRasterWindow>
#include <QScreen>

#include "tests/editor/editor_window.h"
#include "tests/platform/x_server.h"

namespace glintboard {
namespace {

// Another program, from whose window a file can be dragged.
class FileManager : public QRasterWindow {
 public:
  explicit FileManager(QUrl file) : file_(std::move(file)) {
    setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setGeometry(0, 0, 40, 40);
    show();
  }

 private:
  void mouseMoveEvent(QMouseEvent* event) override {
    if (event->buttons() != Qt::NoButton && !dragging_) {
      dragging_ = true;
      auto* drag = new QDrag(this);
      drag->setMimeData(new QMimeData);
      drag->mimeData()->setUrls({file_});
      drag->exec(Qt::CopyAction);
      dragging_ = false;
    }
  }
  void paintEvent(QPaintEvent* /*event*/) override {}

  QUrl file_;
  bool dragging_ = false;
};
constexpr auto fileManagerOption = "--file-manager";

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

TEST_F(EditorOnX11Test, OpensCentredWithinTheScreen) {
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

TEST_F(EditorOnX11Test, DragsACardToTheFirstSlot) {
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
  EXPECT_EQ(shown(), "Calendar, Files, Music");
  pointer("key ctrl+z");
  EXPECT_EQ(shown(), "Files, Music");
  pointer("key Escape");
  EXPECT_TRUE(test::turnUntil([&] { return window == nullptr; }));
}

TEST_F(EditorOnX11Test, AcceptsALauncherDroppedByAFileManager) {
  storeDeck({app("files", "Files"), app("music", "Music")});
  open();
  const auto launcher = stage.desktop.root / "system/applications/notes.desktop";
  const test::ChildProcess fileManager({"/proc/self/exe", fileManagerOption, launcher.string()});
  const auto windows = [] { return test::outputOf("xdotool search --name '^File manager$'"); };
  ASSERT_TRUE(test::turnUntil([&] { return !windows().empty(); }));
  pointer("mousemove 20 20");
  pointer("mousedown 1");
  pointer("mousemove 25 25");
  pointer("mousemove 32 32");
  const QPoint to = slot(1);
  for (int step = 10; step >= 0; --step) {
    pointer(at(to - QPoint(4 * step, 3 * step)));
  }
  EXPECT_TRUE(test::turnUntil([&] { return model->dropTargetIndex() == 1; }));
  pointer("mouseup 1");
  EXPECT_TRUE(test::turnUntil([&] { return shown() == "Files, Notes, Music"; })) << shown();
}

}  // namespace
}  // namespace glintboard

int main(int argc, char** argv) {
  if (argc == 3 && argv[1] == std::string_view(glintboard::fileManagerOption)) {
    const QGuiApplication application(argc, argv);
    glintboard::FileManager window(QUrl::fromLocalFile(argv[2]));
    window.setTitle("File manager");
    return QGuiApplication::exec();
  }
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
