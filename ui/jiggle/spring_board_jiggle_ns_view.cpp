// SPDX-License-Identifier: MIT
#include "ui/jiggle/spring_board_jiggle_ns_view.h"

#include <cmath>
#include <numbers>

namespace glintboard {

namespace {

int milliseconds(double seconds) {
  return static_cast<int>(std::lround(seconds * 1000));
}

}  // namespace

SpringBoardJiggleNSView::SpringBoardJiggleNSView(QQuickItem* parent) : QQuickItem(parent) {
  startWorkItem_.setSingleShot(true);
  startWorkItem_.setTimerType(Qt::PreciseTimer);
  connect(&startWorkItem_, &QTimer::timeout, this, &SpringBoardJiggleNSView::start);
}

void SpringBoardJiggleNSView::setSeed(int seed) {
  if (seed != seed_) {
    seed_ = seed;
    Q_EMIT seedChanged();
  }
}

void SpringBoardJiggleNSView::setActive(bool active) {
  if (active && isActive_ && runningSeed_ == seed_ && hasRotation_) {
    return;
  }
  const bool wasActive = isActive_;
  isActive_ = active;
  startWorkItem_.stop();
  if (!active) {
    runningSeed_.reset();
    Q_EMIT stopAnimations(wasActive ? milliseconds(JiggleTiming::settleDuration) : 0);
  } else {
    Q_EMIT stopAnimations(0);
    runningSeed_ = seed_;
    startWorkItem_.start(milliseconds(JiggleTiming::forSeed(seed_).startDelay));
  }
  if (active != wasActive) {
    Q_EMIT isActiveChanged();
  }
}

void SpringBoardJiggleNSView::start() {
  if (!isActive_) {
    return;
  }
  const auto timing = JiggleTiming::forSeed(seed_);
  Q_EMIT startAnimations(timing.angle * 180 / std::numbers::pi,
                         milliseconds(timing.rotationDuration), JiggleTiming::bounceHeight,
                         milliseconds(timing.bounceDuration));
}

}  // namespace glintboard
