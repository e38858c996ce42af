// SPDX-License-Identifier: MIT
// The agent on a desktop with a display: tray item and windows.
#pragma once

#include <QObject>
#include <chrono>

#include "agent/menu/agent_view_model.h"
#include "agent/menu/menu_presenter.h"
#include "platform/desktop_session.h"

namespace glintboard {

// Shows the item in whatever tray there is, and opens the menu when the item is activated. Main
// thread.
class DesktopShell : public QObject {
  Q_OBJECT

 public:
  // Both must outlive this.
  DesktopShell(AgentViewModel& viewModel, MenuPresenter& menu);

  DesktopAppearance appearance() const { return session_.appearance(); }
  // To be called when the agent was started without its menu: opens that all the same, as a window,
  // if after `timeout` no tray shows the item and no phone is paired: without either there is no
  // way to pair one.
  void startInBackground(std::chrono::milliseconds timeout = std::chrono::seconds(3));

 Q_SIGNALS:
  void appearanceChanged();

  // Emitted on the session's thread; the shell itself listens on the main one.
  void toldAppearance();
  void toldActivation(int x, int y, const QString& token);
  void toldTray(bool shown);

 private:
  void updateToolTip();
  void activated(int x, int y, const QString& token);

  AgentViewModel& viewModel_;
  MenuPresenter& menu_;
  DesktopSession session_;  // last, for its thread calls this
};

}  // namespace glintboard
