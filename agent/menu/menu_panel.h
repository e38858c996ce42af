// SPDX-License-Identifier: MIT
// What the menu's view and its window tell each other.
#pragma once

#include <QQuickItem>

namespace glintboard {

// The root of the menu's view. Lengths are in the window's units. Main thread.
class MenuPanel : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  // Of the whole view, beyond which the content scrolls.
  Q_PROPERTY(qreal maximumHeight MEMBER maximumHeight_ NOTIFY maximumHeightChanged)
  // Around the panel, for its shadow.
  Q_PROPERTY(qreal margin MEMBER margin_ NOTIFY marginChanged)
  // The height that the window takes.
  Q_PROPERTY(qreal shownHeight MEMBER shownHeight_ NOTIFY shownHeightChanged)
  // Nothing is animated until the first layout is done.
  Q_PROPERTY(bool settled MEMBER settled_ NOTIFY settledChanged)

 public:
  explicit MenuPanel(QQuickItem* parent = nullptr) : QQuickItem(parent) {
    setFlag(ItemIsFocusScope);
  }

  void setMaximumHeight(qreal height) {
    maximumHeight_ = height;
    Q_EMIT maximumHeightChanged();
  }
  void setSettled(bool settled) {
    settled_ = settled;
    Q_EMIT settledChanged();
  }
  qreal margin() const { return margin_; }
  qreal shownHeight() const { return shownHeight_; }

 Q_SIGNALS:
  void maximumHeightChanged();
  void marginChanged();
  void shownHeightChanged();
  void settledChanged();
  void closeRequested();

 private:
  qreal maximumHeight_ = 4096;
  qreal margin_ = 0;
  qreal shownHeight_ = 0;
  bool settled_ = false;
};

}  // namespace glintboard
