// SPDX-License-Identifier: MIT
// Where windows open.
#include <gtest/gtest.h>

#include "agent/editor/window_placement.h"
#include "agent/menu/popover_placement.h"

namespace glintboard {
namespace {

TEST(PopoverPlacement, OpensBesideThePanelAndStaysOnTheScreen) {
  const QRect screen(0, 0, 1000, 800);
  const QRect top(0, 30, 1000, 770);
  const QRect bottom(0, 0, 1000, 770);
  const QRect left(40, 0, 960, 800);
  const QRect right(0, 0, 960, 800);
  const QRect second(1000, 0, 1000, 800);
  const QSize size(300, 400);
  struct Case {
    const char* name;
    std::optional<QPoint> anchor;
    QRect screen;
    QRect available;
    QPoint expected;
  };
  const Case cases[] = {
      {"under a panel at the top", QPoint(600, 15), screen, top, {450, 38}},
      {"over a panel at the bottom", QPoint(600, 785), screen, bottom, {450, 362}},
      {"right of a panel", QPoint(20, 400), screen, left, {48, 200}},
      {"left of a panel", QPoint(980, 400), screen, right, {652, 200}},
      {"not beyond the edge", QPoint(990, 15), screen, top, {692, 38}},
      {"a panel that takes no room", QPoint(600, 10), screen, screen, {450, 18}},
      {"on another screen", QPoint(1900, 785), second, second, {1692, 377}},
      {"corner by the top panel", std::nullopt, screen, top, {692, 38}},
      {"corner by the bottom panel", std::nullopt, screen, bottom, {692, 362}},
      {"corner by the left panel", std::nullopt, screen, left, {48, 392}},
      {"corner by the right panel", std::nullopt, screen, right, {652, 392}},
      {"no panel", std::nullopt, screen, screen, {692, 8}},
  };
  for (const auto& [name, anchor, whole, available, expected] : cases) {
    EXPECT_EQ(popoverPosition(anchor, size, whole, available), expected) << name;
  }
  EXPECT_EQ(popoverPosition(std::nullopt, {300, 900}, screen, top).y(), 38)
      << "what is too tall shows its top";
}

TEST(PopoverPlacement, MapsPointsToAScaledScreen) {
  const QRect screen(1000, 0, 500, 400);
  EXPECT_EQ(pointOnScreen({1900, 10}, screen, 2), QPoint(1450, 5));
  EXPECT_EQ(pointOnScreen({999, 10}, screen, 2), std::nullopt);
  EXPECT_EQ(pointOnScreen({2000, 10}, screen, 2), std::nullopt);
}

TEST(WindowPlacement, CentresOnTheScreenUnderThePointer) {
  // A panel takes 40 pixels of the first; the second stands to its left, the third is small.
  const std::vector<ScreenArea> screens = {
      {QRect(0, 0, 1920, 1080), QRect(0, 40, 1920, 1040)},
      {QRect(-1280, 0, 1280, 1024), QRect(-1280, 0, 1280, 1024)},
      {QRect(1920, 0, 1024, 600), QRect(1920, 0, 1024, 570)},
  };
  using Case = std::tuple<QPoint, int, QRect>;
  const QRect onFirst(400, 170, 1120, 780);
  for (const auto& [pointer, own, window] :
       std::vector<Case>{{{100, 100}, 1, onFirst},
                         {{10, 10}, -1, onFirst},
                         {{-1, 500}, -1, QRect(-1200, 122, 1120, 780)},
                         {{2000, 300}, -1, QRect(1920, 0, 1024, 570)},
                         {{9999, 9999}, 1, QRect(-1200, 122, 1120, 780)},
                         {{9999, 9999}, -1, onFirst},
                         {{9999, 9999}, 3, onFirst}}) {
    EXPECT_EQ(centredWindow(QSize(1120, 780), pointer, screens, own), window)
        << pointer.x() << " " << own;
  }
}

}  // namespace
}  // namespace glintboard
