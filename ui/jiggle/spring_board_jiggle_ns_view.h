// SPDX-License-Identifier: MIT
// Starts and stops the wobble of a key. SpringBoardJiggleHost.qml animates it.
//
// The phone and its protocol were made for a Mac. The system's design names this role after the
// view class of that platform.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>
#include <QTimer>
#include <optional>

#include "ui/jiggle/jiggle_timing.h"

namespace glintboard {

// The animations run on the render thread and belong to the QML file, which follows the signals.
// Main thread only.
class SpringBoardJiggleNSView : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(int seed READ seed WRITE setSeed NOTIFY seedChanged)
  Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)
  // Whether the rotation animation exists. It is lost with its window.
  Q_PROPERTY(bool hasRotation MEMBER hasRotation_ NOTIFY hasRotationChanged)

 public:
  explicit SpringBoardJiggleNSView(QQuickItem* parent = nullptr);

  int seed() const { return seed_; }
  // Takes effect with the next `setActive`.
  void setSeed(int seed);
  bool isActive() const { return isActive_; }
  // The seed of the running animations; none when stopped.
  std::optional<int> runningSeed() const { return runningSeed_; }
  // Whether a start of the animations is pending.
  bool isStarting() const { return startWorkItem_.isActive(); }

  // Starts the wobble after the seed's delay, or lets the view settle. Does nothing when it already
  // wobbles with this seed.
  Q_INVOKABLE void setActive(bool active);

 Q_SIGNALS:
  void seedChanged();
  void isActiveChanged();
  void hasRotationChanged();
  // Rotate from -angle to angle (degrees) and back, and move from -height to 0 and back, for ever.
  void startAnimations(double angle, int rotationMilliseconds, double height,
                       int bounceMilliseconds);
  // End both animations, and return to rest within that time.
  void stopAnimations(int settleMilliseconds);

 private:
  void start();

  int seed_ = 0;
  bool isActive_ = false;
  bool hasRotation_ = false;
  std::optional<int> runningSeed_;
  QTimer startWorkItem_;
};

}  // namespace glintboard
