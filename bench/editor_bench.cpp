// SPDX-License-Identifier: MIT
// Measures how long the deck editor takes to open with 2,000 applications, and its frames while 24
// keys wobble and while the library scrolls. Draws offscreen unless QT_QPA_PLATFORM is set, at
// scale 1 unless QT_SCALE_FACTOR is set.
#include <QElapsedTimer>
#include <QPropertyAnimation>
#include <QQuickItem>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <numeric>

#include "tests/support/editor_stage.h"

namespace {

using namespace glintboard;
using test::EditorStage;

constexpr int applications = 2000;

double milliseconds(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Records the work of each frame and the interval between frames while the event loop runs.
class Frames {
 public:
  explicit Frames(QQuickWindow& window) {
    begun_ = QObject::connect(&window, &QQuickWindow::afterAnimating, [this] { work_.start(); });
    ended_ = QObject::connect(&window, &QQuickWindow::frameSwapped, [this] {
      if (between_.isValid()) {
        intervals_.push_back(milliseconds(between_));
        drawn_.push_back(milliseconds(work_));
      }
      between_.start();
    });
  }
  ~Frames() {
    QObject::disconnect(begun_);
    QObject::disconnect(ended_);
  }

  void print(const char* what) {
    if (drawn_.empty()) {
      std::printf("%-28s no frame\n", what);
      return;
    }
    std::ranges::sort(drawn_);
    const double mean =
        std::accumulate(intervals_.begin(), intervals_.end(), 0.0) / double(intervals_.size());
    const auto late = std::ranges::count_if(intervals_, [](double each) { return each > 25; });
    std::printf(
        "%-28s %4zu frames, %5.1f a second, %td of them over 25 ms after the one before;\n"
        "%-28s drawing: median %4.1f, 95 %% %4.1f, worst %4.1f ms\n",
        what, drawn_.size(), 1000 / mean, late, "", drawn_[drawn_.size() / 2],
        drawn_[drawn_.size() * 95 / 100], drawn_.back());
  }

 private:
  QMetaObject::Connection begun_;
  QMetaObject::Connection ended_;
  QElapsedTimer work_;
  QElapsedTimer between_;
  std::vector<double> drawn_;
  std::vector<double> intervals_;
};

void furnish(EditorStage& stage) {
  std::vector<DeckTile> tiles;
  for (int i = 0; i < applications; ++i) {
    const auto id = "app" + std::to_string(i);
    const auto name = "Application " + std::to_string(i);
    stage.app(id, name, QStringLiteral("globe"), i % 360);
    if (i < 24) {
      tiles.push_back(DeckTile::app(0, name, id));
    }
  }
  stage.listShortcuts("true");
  stage.deck(DeckCategoryID::streaming, "Everything", tiles);
}

void open(EditorStage& stage, const char* what) {
  QElapsedTimer timer;
  timer.start();
  stage.open();
  double first = 0;
  double listed = 0;
  bool cardsAreThere = false;
  const auto connection =
      QObject::connect(stage.presenter->window(), &QQuickWindow::frameSwapped, [&] {
        first = first == 0 ? milliseconds(timer) : first;
        listed = listed == 0 && cardsAreThere ? milliseconds(timer) : listed;
      });
  test::turnUntil([&] {
    cardsAreThere = stage.presenter->model()->apps()->cards()->count() == applications;
    return listed > 0;
  });
  QObject::disconnect(connection);
  std::printf("%-28s first frame %4.0f ms, %d cards shown %4.0f ms\n", what, first, applications,
              listed);
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  qputenv("QT_QUICK_BACKEND", "software");
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  EditorStage stage;
  furnish(stage);
  open(stage, "open, the first time");
  stage.presenter->close();
  test::turnUntil([&] { return stage.presenter->window() == nullptr; });
  open(stage, "open again");

  auto* window = stage.presenter->window();
  std::printf("%-28s %.4g pixels a point, on %s\n", "", window->devicePixelRatio(),
              qPrintable(QGuiApplication::platformName()));
  auto* grid = window->rootObject()
                   ->findChild<QQuickItem*>(QStringLiteral("page-apps"))
                   ->property("grid")
                   .value<QQuickItem*>();
  const auto scroll = [&](const char* what) {
    grid->setProperty("contentY", 0);
    Frames frames(*window);
    QPropertyAnimation animation(grid, "contentY");
    animation.setEndValue(12000);
    animation.setDuration(5000);
    animation.start();
    EditorStage::turnFor(5000);
    frames.print(what);
  };
  scroll("scroll while icons arrive");
  QElapsedTimer icons;
  icons.start();
  test::turnUntil([&] { return stage.isLoaded(); }, std::chrono::minutes(1));
  std::printf("%-28s %4.0f ms more\n", "all icons drawn", milliseconds(icons));
  scroll("scroll, all icons there");

  {
    EditorStage::turnFor(500);
    Frames frames(*window);
    EditorStage::turnFor(3000);
    frames.print("nothing touched");
  }
  auto* phone = window->rootObject()->findChild<QQuickItem*>(QStringLiteral("phone"));
  QTest::mouseMove(window, phone->mapToScene(QPointF(20, 20)).toPoint());
  EditorStage::turnFor(500);
  {
    Frames frames(*window);
    const std::clock_t before = std::clock();
    EditorStage::turnFor(5000);
    frames.print("24 keys wobble");
    std::printf("%-28s %4.0f %% of a core\n", "",
                double(std::clock() - before) / CLOCKS_PER_SEC * 20);
  }
  return 0;
}
