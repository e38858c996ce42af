// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSignalSpy>

#include "tests/ui/qml_view.h"
#include "ui/jiggle/spring_board_jiggle_ns_view.h"

namespace glintboard {
namespace {

TEST(SpringBoardJiggle, StartsAfterTheDelayAndOnlyOnce) {
  SpringBoardJiggleNSView view;
  QSignalSpy starts(&view, &SpringBoardJiggleNSView::startAnimations);
  QSignalSpy stops(&view, &SpringBoardJiggleNSView::stopAnimations);
  view.setSeed(4);
  QElapsedTimer clock;
  clock.start();
  view.setActive(true);
  EXPECT_TRUE(view.isStarting());
  EXPECT_EQ(view.runningSeed(), 4);
  ASSERT_TRUE(starts.wait(2000));
  EXPECT_GE(clock.elapsed(), 119);
  EXPECT_NEAR(starts[0][0].toDouble(), 1.146, 0.001);
  EXPECT_EQ(starts[0][1].toInt(), 140);
  EXPECT_EQ(starts[0][3].toInt(), 190);
  view.setProperty("hasRotation", true);
  stops.clear();
  view.setActive(true);
  EXPECT_FALSE(view.isStarting());
  EXPECT_EQ(stops.size(), 0);
  // Another seed restarts the animation, and so does a lost rotation.
  view.setSeed(5);
  view.setActive(true);
  EXPECT_EQ(stops.size(), 1);
  EXPECT_EQ(view.runningSeed(), 5);
  ASSERT_TRUE(starts.wait(2000));
  EXPECT_LT(starts[1][0].toDouble(), 0);
  view.setProperty("hasRotation", false);
  view.setActive(true);
  EXPECT_TRUE(view.isStarting());
}

TEST(SpringBoardJiggle, NeverStartsAfterItWasTurnedOff) {
  SpringBoardJiggleNSView view;
  QSignalSpy starts(&view, &SpringBoardJiggleNSView::startAnimations);
  QSignalSpy stops(&view, &SpringBoardJiggleNSView::stopAnimations);
  for (const int seed : {0, 1, -4}) {
    view.setSeed(seed);
    view.setActive(true);
    view.setActive(false);
    view.setActive(true);
    view.setActive(false);
    EXPECT_FALSE(view.isStarting());
    EXPECT_EQ(view.runningSeed(), std::nullopt);
    EXPECT_EQ(stops.back()[0].toInt(), 100);
    // Already still: nothing to settle.
    view.setActive(false);
    EXPECT_EQ(stops.back()[0].toInt(), 0);
  }
  EXPECT_FALSE(starts.wait(150));
}

constexpr const char* wobblingSymbol = R"(
EditModeJiggleModifier {
  x: 20; y: 20; width: 60; height: 60
  Symbol { name: "lock.fill"; size: 60 }
})";

TEST(EditModeJiggleModifier, WobblesUnlessMotionIsReducedAndReturns) {
  for (const bool reduced : {false, true}) {
    QmlView view(wobblingSymbol, {false, false, reduced, 1});
    const QImage idle = view.grab();
    view.root->setProperty("isActive", true);
    int moved = 0;
    for (int i = 0; i < 20; ++i) {
      QTest::qWait(20);
      moved += view.grab() == idle ? 0 : 1;
    }
    EXPECT_EQ(moved > 10, !reduced);
    EXPECT_TRUE(moved == 0 || !reduced) << moved;
    view.root->setProperty("isActive", false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.grab() == idle; }, 1000));
    QTest::qWait(200);
    EXPECT_TRUE(view.grab() == idle);
  }
}

TEST(HomeScreenMinusBadge, ShowsHelpUnderThePointer) {
  QmlView view("HomeScreenMinusBadge { width: 60; height: 60 }");
  auto* help = view.root->findChild<QObject*>("helpText");
  QTest::mouseMove(&view.window, {22, 22});
  EXPECT_TRUE(QTest::qWaitFor([&] { return help->property("opened").toBool(); }, 3000));
}

}  // namespace
}  // namespace glintboard
