#include <gtest/gtest.h>

#include "agent/editor/window_placement.h"

namespace glintboard {
namespace {

TEST(WindowPlacement, IsTheMiddleOfTheScreenUnderThePointer) {
  // A panel takes 40 pixels of the first; the second stands to its left, the third is small.
  const std::vector<ScreenArea> screens = {
      {QRect(0, 0, 1920, 1080), QRect(0, 40, 1920, 1040)},
      {QRect(-1280, 0, 1280, 1024), QRect(-1280, 0, 1280, 1024)},
      {QRect(1920, 0, 1024, 600), QRect(1920, 0, 1024, 570)},
  };
  struct Case {
    QPoint pointer;
    int own;
    QRect window;
  };
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
