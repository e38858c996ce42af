// SPDX-License-Identifier: MIT
#include "agent/editor/window_placement.h"

#include <algorithm>

namespace glintboard {

QRect centredWindow(QSize size, QPoint pointer, const std::vector<ScreenArea>& screens, int own) {
  auto screen = std::ranges::find_if(
      screens, [&](const ScreenArea& candidate) { return candidate.whole.contains(pointer); });
  if (screen == screens.end()) {
    const bool isKnown = own >= 0 && own < static_cast<int>(screens.size());
    screen = screens.begin() + (isKnown ? own : 0);
  }
  const QRect& available = screen->available;
  const QSize fitting = size.boundedTo(available.size());
  const QSize rest = available.size() - fitting;
  return {available.topLeft() + QPoint(rest.width() / 2, rest.height() / 2), fitting};
}

}  // namespace glintboard
