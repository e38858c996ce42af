// SPDX-License-Identifier: MIT
// When a key wobbles and when it lies still. SpringBoardJiggleHost.qml moves it.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>
#include <QTimer>
#include <optional>

#include "ui/jiggle/jiggle_timing.h"

namespace glintboard {

// The animations themselves run on the render thread and belong to the QML file, which is told by
// signals. Main thread only.
class SpringBoardJiggleNSView : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(int seed READ seed WRITE setSeed NOTIFY seedChanged)
  Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)
  // Whether the rotation is there; an animation may be lost with its window.
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
  // End both, and return to rest within that time.
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
